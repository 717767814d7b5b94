// Two windows of the game's size, as a reference for its start and its memory. With an argument each window
// shows that word, and so loads fonts as every program with text does.
#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QString word = argc > 1 ? argv[1] : "";
    QLabel board(word), panel(word);
    board.resize(357, 400);
    panel.resize(272, 520);
    board.show();
    panel.show();
    return QApplication::exec();
}
