// Makes the pictures of the help page: plays the game offscreen and saves what its windows show.
// Arguments: the collection, and the folder for the pictures.
#include "core/board_window.h"
#include "core/panel_window.h"
#include "core/piece_geometry.h"
#include "platform/desktop.h"
#include "platform_qt/event_delivery.h"
#include "platform_qt/qt_desktop.h"
#include "play/mouse_play.h"
#include "shell/all_shapes.h"
#include "shell/control_panel.h"
#include "shell/design_windows.h"
#include "shell/print_shapes.h"

#include <QtWidgets>

namespace {

/// The quillet that is built, by its record without the number, and its corner on the board.
constexpr const char* SwanRecord = ",60,60,5,60,196,3,196,60,1,128,230,1,162,196,7,196,162,5,60,128,5,94,162";
constexpr Number FigureX = 20, FigureY = 20;
constexpr std::int16_t Normal = 14, Easy = 15, VeryEasy = 16, Sound = 11;
/// Widths at which one, two or three pictures fit a help window that nobody has made wider.
constexpr int Full = 430, Half = 200, Third = 130;
QTemporaryDir ProgramFolder;
QString PictureFolder;
qsizetype Swan;

/// The records begin in line 66.
void FindSwan(QFile& collection) {
    collection.open(QIODevice::ReadOnly);
    const QStringList lines = QString(collection.readAll()).split("\r\n");
    Swan = lines.indexOf(QRegularExpression(QString("[0-9]+") + SwanRecord)) - 64;
    if (Swan < 1) qFatal("there is no swan in the collection");
}

void Save(const QString& name, const QPixmap& picture, int width = 0) {
    const QPixmap shown = width ? picture.scaledToWidth(width, Qt::SmoothTransformation) : picture;
    if (!shown.save(QDir(PictureFolder).filePath(name + ".png"))) qFatal("cannot save %s", qPrintable(name));
}

QWidget& Shown(const QString& name) {
    for (QWidget* widget : QApplication::allWidgets())
        if (widget->objectName() == name && widget->isVisible()) return *widget;
    qFatal("%s is not shown", qPrintable(name));
}

QPixmap Board() {
    return Shown("Picture1").grab(QRect(0, 0, 350, 360));
}

/// The handler runs as an event of the board's window.
void Act(const std::function<void()>& handler) {
    Deliver(Shown("FormMain"), handler);
}

void Press(std::int16_t button) {
    Act([=] { ButtonPressed(button); });
}

void Mouse(MouseHandler handler, QPointF at) {
    Act([=] { handler(1, 0, static_cast<float>(at.x()), static_cast<float>(at.y())); });
}

QPointF Middle(int piece) {
    BuildPolygon(piece, NearestInt16(Game.PieceTurn[piece]), Game.BoardX0 + Game.PieceX[piece],
                 Game.BoardY0 + Game.PieceY[piece], Game.TargetPoly);
    const auto v = Drawn(Game.TargetPoly);
    return QPointF(v[0].X + v[1].X + v[2].X + v[3].X, v[0].Y + v[1].Y + v[2].Y + v[3].Y) / 4;
}

void Turn(int piece) {
    while (Game.PieceTurn[piece] != Game.SolTurn[piece][Swan]) Act([=] { TurnPiece(piece); });
}

/// Drags a piece to its place; takes a picture of the first on its way.
void Lay(int piece) {
    Turn(piece);
    const QPointF from = Middle(piece);
    const QPointF way(FigureX + Game.SolX[piece][Swan] - Game.PieceX[piece],
                      FigureY + Game.SolY[piece][Swan] - Game.PieceY[piece]);
    Mouse(Picture1_MouseDown, from);
    Mouse(Picture1_MouseMove, from);
    Mouse(Picture1_MouseMove, from + 0.6 * way);
    if (piece == 0) Save("drag", Board().copy(15, 40, Half, 160));
    Mouse(Picture1_MouseUp, from + way);
}

void TakeLevels() {
    for (const std::int16_t level : {VeryEasy, Easy, Normal}) {
        Press(level);
        const QString name = QString::fromStdString(Form1.MenuButx[level].Picture);
        Save("target_" + name, Shown("TargetQui").grab(), Third);
        Save("level_" + name, Board(), Third);
    }
}

void TakeWin() {
    Save("won", Board(), Half);
    Save("box", QApplication::activeModalWidget()->grab());
    QApplication::activeModalWidget()->close();
}

void TakePages() {
    Act(OpenAllShapes);
    QApplication::processEvents(); // it opens behind the handler
    Act([] { AllShapes.MouseMove(0, 0, 2500, 1300); });
    Save("view_all", Shown("AllShapes").grab());
    Act([] { ShowForm(PrintShapes, Modality::Modeless); });
    Act(PrintShapes.Menus[0].Items[0].Click);
    Save("print", Shown("PrintShapes").grab(), Full);
}

/// In this order no piece is dropped onto another.
void TakePictures() {
    FormMain.Activate = nullptr;
    ShowForm(FormMain, Modality::Modeless);
    QApplication::processEvents(); // menus come when the windows are there
    Act([] { SelectQuillet(static_cast<Number>(Swan)); });
    Save("panel", Shown("Form1").grab(), 180);
    Save("board", Shown("FormMain").grab(), 250);
    for (const TileButton& button : Form1.MenuButx)
        if (const QString name = QString("MenuButx_%1").arg(button.Index); !button.Picture.empty())
            Save(QString::fromStdString("button_" + button.Picture), Shown(name).grab());
    Save("start", Board(), Half);
    Turn(0);
    Save("turned", Board(), Half);
    for (const int piece : {0, 5, 3}) Lay(piece);
    Save("half", Board(), Half);
    TakeLevels();
    for (const int piece : {1, 6, 4}) Lay(piece);
    Save("nearly", Board(), Half);
    QTimer onBox;
    onBox.callOnTimeout(TakeWin);
    onBox.start();
    Lay(2);
    onBox.stop();
    if (Game.CurrentQuillet == static_cast<Number>(Swan)) qFatal("the swan is not recognised");
    TakePages();
    Press(VeryEasy);
    Save("pieces", Board(), Half);
    for (const std::int16_t button : {Easy, Sound}) Press(button);
    Save("buttons", Shown("Form1").grab(QRect(0, 0, 262, 125)));
    ProgramFolder.remove();
    EndProgram();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) qFatal("usage: make_pictures COLLECTION FOLDER");
    PictureFolder = argv[2];
    QFile collection(argv[1]);
    FindSwan(collection);
    collection.copy(ProgramFolder.filePath("QUILLET.qui"));
    DesignWindows();
    FormMain.Activate = TakePictures;
    return RunDesktop(argc, argv, FormMain, ProgramFolder.path().toStdString());
}
