// SPDX-License-Identifier: MIT
#include "navigation/BVStackStartPage.h"

#include "controls/BVInfoArea.h"
#include "controls/BVLabel.h"
#include "controls/BVProgressiveDisclosure.h"
#include "navigation/BVStackAnimationWidget.h"
#include "navigation/BVStartPageButton_p.h"
#include "platform/PropertyChangeFilter.h"

#include <QAction>
#include <QEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QMargins s_controlMargins(17, 21, 17, 21); // px, as all below
constexpr int s_controlSpacing = 6;
constexpr int s_controlSpacingWithTitle = 15;
constexpr int s_mainSpacing = 4;
constexpr int s_mainSpacingWithTitle = 0;
constexpr QMargins s_groupMargins(9, 6, 9, 9);

constexpr char s_composition[] = "composition";

/// As it is read: an ampersand before a letter marks a mnemonic, two of them show one.
QString withoutMnemonics(const QString &text)
{
    QString plain;
    for (int i = 0; i < text.size(); ++i) {
        if (text[i] == QLatin1Char('&') && i + 1 < text.size())
            ++i;
        plain.append(text[i]);
    }
    return plain;
}

BVLabel *makeTitle(const QString &text, QWidget *parent)
{
    auto *label = new BVLabel(text, parent);
    label->setProperty("header", true);
    return label;
}

void setComposition(QWidget *button, const QVariant &side)
{
    button->setProperty(s_composition, side);
    PropertyChangeFilter::repolishPost(button);
}

} // namespace

BVStackStartPage::BVStackStartPage(QWidget *parent, QWidget *animationParent, bool withTitle,
                                   bool addStretch)
    : QWidget(parent)
    , m_infoArea(new BVInfoArea(this))
    , m_controlLayout(new QVBoxLayout)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    QWidget *sky = animationParent ? animationParent : parent;
    m_animation = new BVStackAnimationWidget(sky ? sky : this);
    connect(m_animation, &BVStackAnimationWidget::finished, this,
            &BVStackStartPage::onAnimationFinished);
    connect(m_animation, &QObject::destroyed, this, &BVStackStartPage::onAnimationWidgetDestroyed);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(withTitle ? s_mainSpacingWithTitle : s_mainSpacing);
    m_infoArea->hide();
    layout->addWidget(m_infoArea);
    if (withTitle)
        makeHeader();
    m_controlLayout->setContentsMargins(s_controlMargins);
    m_controlLayout->setSpacing(withTitle ? s_controlSpacingWithTitle : s_controlSpacing);
    layout->addLayout(m_controlLayout);
    if (addStretch)
        layout->addSpacerItem(
            new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Expanding));
}

/// A flight in progress ends here, without a word; one that has led here is still on the stack.
BVStackStartPage::~BVStackStartPage()
{
    if (!m_animation)
        return;
    m_animation->disconnect(this);
    m_animation->endAnimation();
    if (m_animation)
        m_animation->deleteLater();
}

void BVStackStartPage::makeHeader()
{
    m_header = makeTitle(tr("Add Module"), this);
    m_header->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    layout()->addWidget(m_header);
}

/// The left one stands at the left whatever the direction of reading, as the style sheet rounds the
/// corners of that side.
void BVStackStartPage::updateDirection(QBoxLayout *row) const
{
    row->setDirection(isRightToLeft() ? QBoxLayout::RightToLeft : QBoxLayout::LeftToRight);
}

void BVStackStartPage::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        for (const Control &control : qAsConst(m_controls))
            if (control.m_row)
                updateDirection(control.m_row);
    if (event->type() == QEvent::LanguageChange && m_header)
        m_header->setText(tr("Add Module"));
}

BVStackAnimationWidget *BVStackStartPage::animationWidget() const
{
    return m_animation;
}

// Controls

int BVStackStartPage::indexOf(const QAction *action) const
{
    const auto found =
        std::find_if(m_controls.cbegin(), m_controls.cend(),
                     [action](const Control &control) { return control.m_action == action; });
    return found == m_controls.cend() ? -1 : int(found - m_controls.cbegin());
}

QList<QAction *> BVStackStartPage::newActions(const QList<QAction *> &actions) const
{
    QList<QAction *> added;
    for (QAction *action : actions)
        if (action && indexOf(action) < 0 && !added.contains(action))
            added.append(action);
    return added;
}

BVStartPageButton *BVStackStartPage::makeButton(QAction *action, const QIcon &icon, QBoxLayout *row)
{
    auto *button = new BVStartPageButton(action, icon, this);
    m_controls.append({action, button, nullptr});
    row->addWidget(button);
    button->updateButton();
    connect(button, &QAbstractButton::clicked, this, &BVStackStartPage::startAnimation);
    connect(action, &QAction::changed, this, &BVStackStartPage::actionChanged);
    connect(action, &QObject::destroyed, &m_watch, [this, action] { onActionDestroyed(action); });
    connect(button, &QObject::destroyed, &m_watch, [this, action] { forget(action); });
    return button;
}

void BVStackStartPage::addControl(QAction *action)
{
    addControl(action, QIcon());
}

void BVStackStartPage::addControl(QAction *action, const QIcon &icon)
{
    if (!newActions({action}).isEmpty())
        makeButton(action, icon, m_controlLayout);
}

void BVStackStartPage::addControl(QAction *left, QAction *right)
{
    if (newActions({left, right}).size() < 2) {
        addControl(left);
        addControl(right);
        return;
    }
    auto *row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    updateDirection(row);
    m_controlLayout->addLayout(row);
    BVStartPageButton *leftButton = makeButton(left, QIcon(), row);
    m_controls.last().m_row = row;
    BVStartPageButton *rightButton = makeButton(right, QIcon(), row);
    m_controls.last().m_row = row;
    BVStartPageButton::pair(leftButton, rightButton);
    setComposition(leftButton, QStringLiteral("left"));
    setComposition(rightButton, QStringLiteral("right"));
}

void BVStackStartPage::removeControl(QAction *action)
{
    const int index = indexOf(action);
    if (index < 0)
        return;
    const Control control = m_controls.takeAt(index);
    // The button may be busy with the click that has led here.
    control.m_button->disconnect(this);
    control.m_button->disconnect(&m_watch);
    control.m_button->hide();
    control.m_button->setParent(nullptr);
    control.m_button->deleteLater();
    leave(control);
}

void BVStackStartPage::forget(QAction *action)
{
    const int index = indexOf(action);
    if (index >= 0)
        leave(m_controls.takeAt(index));
}

void BVStackStartPage::leave(const Control &control)
{
    control.m_action->disconnect(this);
    if (!m_flights.contains(control.m_action))
        control.m_action->disconnect(&m_watch);
    if (control.m_row)
        leaveRow(control.m_row);
    updateGroups();
}

/// The other button of the row is alone now, or the row is empty.
void BVStackStartPage::leaveRow(QBoxLayout *row)
{
    bool isEmpty = true; // a hidden button is none to the layout
    for (const Control &control : qAsConst(m_controls)) {
        if (control.m_row != row)
            continue;
        setComposition(control.m_button, QVariant());
        isEmpty = false;
    }
    if (isEmpty)
        delete row;
}

void BVStackStartPage::addTitleText(const QString &text)
{
    if (!text.isEmpty())
        m_controlLayout->addWidget(makeTitle(text, this));
}

void BVStackStartPage::addInformationText(const QString &text)
{
    if (text.isEmpty())
        return;
    m_infoArea->addMessage(text);
    m_infoArea->show();
}

void BVStackStartPage::addSpacing(int size)
{
    if (size > 0)
        m_controlLayout->addSpacing(size);
}

// Groups

BVProgressiveDisclosure *BVStackStartPage::controlGroup(const QString &title) const
{
    const auto found =
        std::find_if(m_groups.cbegin(), m_groups.cend(),
                     [&title](const auto *group) { return group->title() == title; });
    return found == m_groups.cend() ? nullptr : *found;
}

BVProgressiveDisclosure *BVStackStartPage::makeGroup(const QString &title)
{
    auto *group = new BVProgressiveDisclosure(this);
    group->setTitle(title);
    auto *content = new QVBoxLayout;
    content->setContentsMargins(s_groupMargins);
    content->setSpacing(s_controlSpacing);
    group->setContentLayout(content);
    connect(group, &BVProgressiveDisclosure::sigClosed, this, &BVStackStartPage::disclosureClosed);
    m_controlLayout->addWidget(group);
    m_groups.append(group);
    connect(group, &QObject::destroyed, &m_watch, [this, group] { m_groups.removeOne(group); });
    return group;
}

BVProgressiveDisclosure *BVStackStartPage::addControlGroup(const QString &title,
                                                           const QList<QAction *> &actions)
{
    const QList<QAction *> added = newActions(actions);
    if (added.isEmpty())
        return nullptr;
    BVProgressiveDisclosure *group = controlGroup(title);
    if (!group)
        group = makeGroup(title);
    auto *content = static_cast<QBoxLayout *>(group->contentWidget()->layout());
    for (QAction *action : added)
        makeButton(action, QIcon(), content);
    updateGroups();
    return group;
}

void BVStackStartPage::updateGroups()
{
    const QVector<BVProgressiveDisclosure *> groups = m_groups;
    for (BVProgressiveDisclosure *group : groups) {
        bool isEmpty = true;
        bool isShown = false;
        for (const Control &control : qAsConst(m_controls)) {
            const bool isInside = group->isAncestorOf(control.m_button);
            isEmpty = isEmpty && !isInside;
            isShown = isShown || (isInside && control.m_action->isVisible());
        }
        group->setVisible(isShown);
        if (!isEmpty)
            continue;
        m_groups.removeOne(group);
        group->deleteLater();
    }
}

void BVStackStartPage::disclosureClosed(bool closed)
{
    if (const auto *group = qobject_cast<BVProgressiveDisclosure *>(sender()))
        Q_EMIT actionBarsClosed(group->title(), closed);
}

// State of the controls

QList<QAction *> BVStackStartPage::actionsWithText(const QString &text) const
{
    QList<QAction *> actions;
    for (const Control &control : m_controls)
        if (withoutMnemonics(control.m_action->text()) == withoutMnemonics(text))
            actions.append(control.m_action);
    return actions;
}

void BVStackStartPage::enableControl(QAction *action, bool enable)
{
    if (indexOf(action) >= 0)
        action->setEnabled(enable);
}

void BVStackStartPage::enableControl(const QString &text, bool enable)
{
    const QList<QAction *> actions = actionsWithText(text);
    for (QAction *action : actions)
        enableControl(action, enable);
}

void BVStackStartPage::enableAllControlActions(bool enable)
{
    const QVector<Control> controls = m_controls;
    for (const Control &control : controls)
        enableControl(control.m_action, enable);
}

void BVStackStartPage::showControl(QAction *action, bool show)
{
    if (indexOf(action) >= 0)
        action->setVisible(show);
}

void BVStackStartPage::showControl(const QString &text, bool show)
{
    const QList<QAction *> actions = actionsWithText(text);
    for (QAction *action : actions)
        showControl(action, show);
}

QWidget *BVStackStartPage::getWidgetFromAction(QAction *action) const
{
    const int index = indexOf(action);
    return index < 0 ? nullptr : m_controls[index].m_button;
}

void BVStackStartPage::setAllWidgetsStatus(BVWidgetStatus::Status status)
{
    for (const Control &control : qAsConst(m_controls))
        BVWidgetStatus::setStatusProperty(control.m_button, BVWidgetStatus::Stati(status));
}

void BVStackStartPage::actionChanged()
{
    const int index = indexOf(qobject_cast<QAction *>(sender()));
    if (index < 0)
        return;
    m_controls[index].m_button->updateButton();
    updateGroups();
}

// Clicks

void BVStackStartPage::startAnimation()
{
    auto *action = qobject_cast<QAction *>(sender());
    if (const auto *clicked = qobject_cast<BVStartPageButton *>(sender()))
        action = clicked->action();
    const int index = indexOf(action);
    if (!action || index < 0 || action == m_triggered)
        return;
    const QPointer<BVStackStartPage> guard(this);
    fly(action, m_controls[index].m_button);
    if (guard && m_hideAfterClick)
        hide();
}

void BVStackStartPage::fly(QAction *action, BVStartPageButton *button)
{
    QImage image = button->picture();
    const QPoint start = button->mapToGlobal(QPoint());
    const QPointer<BVStackStartPage> guard(this);
    m_flights.append(action);
    Q_EMIT animationStarted(action);
    if (!guard || !m_flights.contains(action)) // it has been deleted
        return;
    if (m_noAnimation || !m_animation || image.isNull()) {
        onAnimationFinished(action);
        return;
    }
    if (const QWidget *sky = m_animation->parentWidget())
        m_animation->setGeometry(sky->rect());
    m_animation->startAnimation(&image, start, action);
}

void BVStackStartPage::onAnimationFinished(QAction *action)
{
    const QPointer<BVStackStartPage> guard(this);
    m_flights.removeOne(action);
    QAction *outer = m_triggered;
    m_triggered = action;
    if (action)
        action->trigger();
    if (!guard)
        return;
    m_triggered = outer;
    Q_EMIT animationHasFinished();
}

/// Without an action there is nothing left to fly for.
void BVStackStartPage::onActionDestroyed(QAction *action)
{
    removeControl(action);
    const QPointer<BVStackStartPage> guard(this);
    if (m_triggered == action)
        m_triggered = nullptr;
    while (guard && m_flights.removeOne(action)) {
        if (m_animation && m_flights.isEmpty())
            m_animation->endAnimation();
        Q_EMIT animationHasFinished();
    }
}

void BVStackStartPage::onAnimationWidgetDestroyed()
{
    const QVector<QAction *> flights = m_flights;
    for (QAction *action : flights) {
        const auto land = [this, action] {
            if (m_flights.contains(action)) // else it has been deleted
                onAnimationFinished(action);
        };
        QMetaObject::invokeMethod(this, land, Qt::QueuedConnection);
    }
}
