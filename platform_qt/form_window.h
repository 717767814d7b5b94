// A top-level window that shows a form: its controls, its menus, and its own surface where that is shown.
#pragma once

#include "platform_qt/scroll_bar_widget.h"
#include "platform_qt/surface_widgets.h"

#include <functional>
#include <memory>
#include <vector>

/// The height of a menu bar, in logical pixels; its fonts, which take long to load, are not asked for it.
constexpr int MenuBarHeight = 19;

class FormWindow : public QWidget {
  public:
    explicit FormWindow(Form& record);

    /// Brings the window in line with the record. The place on the screen is set when the window is shown.
    void ShowRecord(ShownRows rows);

    /// Makes the hidden window again. It stays in front of its owner; without one it is as free as any other.
    /// A quiet one leaves the keyboard where it is.
    void Prepare(QWidget* owner, bool quiet);

    /// Shows the window in front, and gives it the keyboard unless it is quiet. It stands where the player
    /// left it; at first at the record's place or in the centre of the screen.
    void Show();

    /// Takes the window off the screen.
    void Leave();

    /// Lets the record know where the window stands.
    void NotePlace();

    /// The next time the window opens as new.
    void ForgetPlace() { Placed = false; }

    /// What a box must leave in view, on the screen.
    QList<QRect> Figures() const;

    /// Opens the window's menu; false where there is none.
    bool OpenMenu();

    Form& Shown() const { return Record; }

    /// What a print of the form shows.
    QWidget* ClientArea() { return Client; }

    /// Ends every press under way on the pictures.
    void LoseMouse();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void AddControls(const std::vector<ControlRef>& controls, QWidget* parent);
    void Add(Picture& record, QWidget* parent);
    void Add(Label& record, QWidget* parent);
    void Add(TileButton& record, QWidget* parent);
    void Add(Frame& record, QWidget* parent);
    void Add(ScrollBar& record, QWidget* parent);
    void Add(CommandButton& record, QWidget* parent);
    void Add(TextBox& record, QWidget* parent);
    void Add(WebBrowser& record, QWidget* parent);
    template <typename Widget>
    void ShowLater(Widget* widget);
    void AddMenus();
    void PlaceClient();
    void FixSize(QSize size);
    void FollowScreen();
    void MoveToPlace();
    void SetPlace(QPoint corner);
    void ComeToFront();
    void AddScroller();
    void LeadRecord();
    int MenuHeight() const { return Record.Menus.empty() ? 0 : MenuBarHeight; }

    Form& Record;
    ClientWidget* Client;
    bool Placed = false;
    ScrollBarWidget* Bar = nullptr;
    class QMenuBar* MenuBar = nullptr;
    /// Holds the client area where the screen is smaller than the window.
    class QScrollArea* Scroller = nullptr;
    std::vector<PictureWidget*> Pictures;
    std::vector<std::function<void()>> OtherControls;
};

/// The form's window, made at the first call.
FormWindow& WindowOf(Form& form);

/// The form's window; none before the first call of WindowOf.
FormWindow* FindWindow(const Form& form);

/// All windows made so far.
const std::vector<std::unique_ptr<FormWindow>>& AllWindows();
