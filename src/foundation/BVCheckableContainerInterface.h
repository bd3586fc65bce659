// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "foundation/BVCheckableContainerWidgetInterface.h"

#include <QButtonGroup>
#include <QWidget>

class BVWidgetStatusHandler;
class QAbstractButton;

/// A widget that holds a group of buttons of which one can be checked, and combines their statuses.
///
/// Items are addressed by their position in the group's list of buttons; each also has the id that
/// it was attached with. The container carries a status of its own: the operations without an index
/// read and write it, and its flags that concern the standard (CompareDifferent and the flags from
/// StandardEnabled to ResetAvailable) are handed down to all buttons.
class BVWIDGETS_EXPORT BVCheckableContainerInterface :
    public QWidget,
    public BVCheckableContainerWidgetInterface
{
    Q_OBJECT
    Q_PROPERTY(bool autoAttach READ isAutoAttach WRITE setAutoAttach)

public:
    explicit BVCheckableContainerInterface(QWidget *parent = nullptr);
    ~BVCheckableContainerInterface() override;

    /// Adds the button to the group. Null and a button of the group are ignored. The button stays
    /// with its owner.
    void attach(QAbstractButton *button, int id);
    void detach(QAbstractButton *button);
    /// Attaches the direct children that are buttons, in their order, each with the number of
    /// buttons already in the group as id.
    void attachAllChildren();
    void detachAll();

    /// While on, buttons that become children are attached and those that leave are detached.
    void setAutoAttach(bool on);
    bool isAutoAttach() const { return m_autoAttach; }

    /// The button at that position, or null.
    QAbstractButton *button(int index) const;
    /// The id of the button at that position; -1 out of range.
    int idFromIndex(int index) const;
    /// The position of the button with that id; -1 for none.
    int indexFromId(int id) const;

    /// Checks the button with that id; an unknown id is ignored.
    void setChecked(int id);
    /// Leaves no button checked, in an exclusive group too.
    void uncheckCurrent();
    int currentIndex() const override;
    void setCurrentIndex(int index) override;

    using BVCheckableContainerWidgetInterface::getBvStatus;
    using BVCheckableContainerWidgetInterface::setBvStatus;
    void setBvStatus(BVWidgetStatus::Status status, bool on) override;
    /// Gives the container these flags and its buttons those of them that concern the standard.
    void setBvStatus(BVWidgetStatus::Stati stati) override;
    bool getBvStatus(BVWidgetStatus::Status status) const override;
    BVWidgetStatus::Stati getBvStatus() const override;

    bool event(QEvent *event) override;

Q_SIGNALS:
    /// A button was clicked; @p id is the one it was attached with.
    void buttonClicked(int id);
    /// An entry of the standard context menu was chosen; @p action is a StandardAction.
    void standardActionTriggered(int action);

protected:
    using BVCheckableContainerWidgetInterface::updateWidget;
    void updateWidget() override;

private:
    void followContextMenu(QWidget *widget);
    void showContextMenu(const QPoint &globalPosition);
    void childArrived(QObject *child);

    QButtonGroup m_group;
    bool m_autoAttach = false;              // before what announces itself as a child
    BVWidgetStatusHandler *m_statusHandler; // child of this
};
