// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "foundation/BVWidgetStatus.h"

#include <QPointer>
#include <QVector>
#include <QWidget>

class BVInfoArea;
class BVLabel;
class BVProgressiveDisclosure;
class BVStackAnimationWidget;
class BVStartPageButton;
class QAction;
class QBoxLayout;
class QIcon;
class QVBoxLayout;

/// A list of large command buttons, shown while there is no page yet: each one stands for an action
/// that makes one.
///
/// **Buttons.** A button shows the text, icon and tool tip of its action, its status tip as a
/// second line, and is enabled and visible as the action is. An action without an icon gets the
/// arrow of the style. Actions are not owned; a button goes with its action. An action has one
/// button: adding it again is ignored.
///
/// **Clicks.** A picture of the clicked button flies to its target, see animationWidget(); then the
/// action is triggered. animationStarted() and animationHasFinished() enclose each click, also
/// without an animation and if the action or the animation's parent is deleted meanwhile. Slots may
/// disable actions until the flight has ended: the clicked one is triggered all the same. An action
/// that is triggered by the page does not start another flight.
///
/// **Keyboard.** Arrow keys, Home and End move the focus between the buttons; Return, Enter and the
/// space bar click.
///
/// **Sheets** select the header and the titles with BVLabel[header="true"], and two buttons side by
/// side with the property "composition" ("left", "right"); a button that is left alone loses it.
/// The left one stays at the left where text is read from right to left.
class BVWIDGETS_EXPORT BVStackStartPage : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool hideAfterClick READ isHideAfterClick WRITE setHideAfterClick)
    Q_PROPERTY(bool noAnimation READ isNoAnimation WRITE setNoAnimation)

public:
    /// The flight is seen over @p animationParent, without one over @p parent, and without that
    /// over the page itself.
    explicit BVStackStartPage(QWidget *parent = nullptr, QWidget *animationParent = nullptr,
                              bool withTitle = false, bool addStretch = true);
    ~BVStackStartPage() override;

    /// Whether the page hides itself when a button has been clicked. Off at first.
    bool isHideAfterClick() const { return m_hideAfterClick; }
    void setHideAfterClick(bool hide) { m_hideAfterClick = hide; }
    /// Whether actions are triggered at once. Off at first.
    bool isNoAnimation() const { return m_noAnimation; }
    void setNoAnimation(bool noAnimation) { m_noAnimation = noAnimation; }

    /// Null once its parent has been deleted; then actions are triggered at once.
    BVStackAnimationWidget *animationWidget() const;
    /// Above the buttons; hidden at first.
    BVInfoArea *infoArea() const { return m_infoArea; }

    /// Adds a button below what there is. Null is ignored.
    void addControl(QAction *action);
    /// The same with an icon of its own instead of the action's.
    void addControl(QAction *action, const QIcon &icon);
    /// Adds two buttons side by side. If one of the actions is null, or has a button already, the
    /// other gets a row to itself.
    void addControl(QAction *left, QAction *right);
    /// Adds buttons in a section that the user can close, see actionBarsClosed(). A section with
    /// the same title gets them at its end. The section is hidden while none of its buttons is
    /// visible, and deleted with its last one. Answers with the section; null if there is nothing
    /// to add.
    BVProgressiveDisclosure *addControlGroup(const QString &title, const QList<QAction *> &actions);
    /// Null if there is none.
    BVProgressiveDisclosure *controlGroup(const QString &title) const;
    /// Takes the button of an action away. The action lives on.
    void removeControl(QAction *action);
    /// Adds a title between the buttons. Empty texts are ignored here and below.
    void addTitleText(const QString &text);
    /// Adds a message to the information area, which is shown.
    void addInformationText(const QString &text);
    /// Adds space, in pixels, between the buttons. 0 and less is ignored.
    void addSpacing(int size);

    /// Enables or disables an action, and so its button. Those without a button here are ignored.
    void enableControl(QAction *action, bool enable);
    /// The same for all actions with a text. Ampersands that mark mnemonics do not count.
    void enableControl(const QString &text, bool enable);
    void enableAllControlActions(bool enable);
    /// Shows or hides an action, and so its button.
    void showControl(QAction *action, bool show);
    void showControl(const QString &text, bool show);

    /// The button; null for an action without one.
    QWidget *getWidgetFromAction(QAction *action) const;
    /// Replaces the status of each button by this one; Normal clears it.
    void setAllWidgetsStatus(BVWidgetStatus::Status status);

public Q_SLOTS:
    /// The sender, a button or an action with one, has been clicked.
    void startAnimation();
    /// Triggers the action and emits animationHasFinished().
    void onAnimationFinished(QAction *action);
    /// The sender's button follows it.
    void actionChanged();
    /// The sender is the section that has been closed or opened.
    void disclosureClosed(bool closed);

Q_SIGNALS:
    void animationStarted(QAction *action);
    /// The action, if it is still there, has been triggered.
    void animationHasFinished();
    /// A section of addControlGroup() has been closed or opened.
    void actionBarsClosed(const QString &title, bool closed);

protected:
    void changeEvent(QEvent *event) override;

private:
    struct Control
    {
        QAction *m_action = nullptr; // not owned
        BVStartPageButton *m_button = nullptr;
        QBoxLayout *m_row = nullptr; // for two of them; else null
    };

    void makeHeader();
    int indexOf(const QAction *action) const;
    QList<QAction *> actionsWithText(const QString &text) const;
    QList<QAction *> newActions(const QList<QAction *> &actions) const;
    BVStartPageButton *makeButton(QAction *action, const QIcon &icon, QBoxLayout *row);
    BVProgressiveDisclosure *makeGroup(const QString &title);
    void updateGroups();
    void forget(QAction *action);
    void leave(const Control &control);
    void leaveRow(QBoxLayout *row);
    void updateDirection(QBoxLayout *row) const;
    void fly(QAction *action, BVStartPageButton *button);
    void onActionDestroyed(QAction *action);
    void onAnimationWidgetDestroyed();

    QPointer<BVStackAnimationWidget> m_animation;
    BVInfoArea *m_infoArea;       // child of this
    BVLabel *m_header = nullptr;  // child of this; null without a title
    QVBoxLayout *m_controlLayout; // in the main layout
    QVector<Control> m_controls;
    QVector<BVProgressiveDisclosure *> m_groups; // children of this
    QVector<QAction *> m_flights;                // of actions that are to be triggered
    QAction *m_triggered = nullptr;              // while it is
    bool m_hideAfterClick = false;
    bool m_noAnimation = false;
    QObject m_watch; // for what may be deleted; last, since children go after all else here
};
