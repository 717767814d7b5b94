// The style, and the colours that every part of a window takes from it.
#include "platform_qt/game_style.h"

#include "platform_qt/form_window.h"
#include "platform_qt/qt_values.h"

#include <QApplication>
#include <QPalette>
#include <QProxyStyle>

namespace {

/// Every menu has its room, so the menu bar's icon for those without is left out: reading it would load the
/// library of each picture format at the start.
class GameStyle : public QProxyStyle {
  public:
    GameStyle() : QProxyStyle("Fusion") {}
    QIcon standardIcon(StandardPixmap kind, const QStyleOption* option,
                       const QWidget* widget) const override {
        return kind == SP_ToolBarHorizontalExtensionButton ? QIcon()
                                                           : QProxyStyle::standardIcon(kind, option, widget);
    }
    QSize sizeFromContents(ContentsType kind, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override {
        QSize size = QProxyStyle::sizeFromContents(kind, option, contents, widget);
        if (kind == CT_MenuBarItem && !size.isEmpty()) size.setHeight(MenuBarHeight);
        return size;
    }
};

} // namespace

/// The game's colours are light on every desktop, so that black figures stand out.
void SetGameStyle() {
    QApplication::setStyle(new GameStyle);
    QPalette colours(QtColour(ButtonFace));
    colours.setColor(QPalette::Window, QtColour(ButtonFace));
    QApplication::setPalette(colours);
    QApplication::setFont(QtFont({"Arial", 9, false}));
}
