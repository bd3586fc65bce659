// SPDX-License-Identifier: MIT
#include "itemviews/BVListToolBar_p.h"

#include "platform/SvgIcon.h"

#include <QAction>
#include <QHBoxLayout>
#include <QToolButton>

namespace {

constexpr int s_spacing = 2;   // px
constexpr int s_iconSize = 16; // px, of the longer side

struct CommandLook
{
    const char *text;
    const char *toolTip;
    const char *icon;
};

constexpr CommandLook s_looks[] = {
    {QT_TRANSLATE_NOOP("BVListToolBar", "Move Up"),
     QT_TRANSLATE_NOOP("BVListToolBar", "Moves the selected rows over the row above"),
     ":/Icons/chevron-up.svg"},
    {QT_TRANSLATE_NOOP("BVListToolBar", "Move Down"),
     QT_TRANSLATE_NOOP("BVListToolBar", "Moves the selected rows over the row below"),
     ":/Icons/chevron-down.svg"},
    {QT_TRANSLATE_NOOP("BVListToolBar", "Rename"),
     QT_TRANSLATE_NOOP("BVListToolBar", "Opens the name of the current row for editing (F2)"),
     ":/Icons/rename.svg"},
    {QT_TRANSLATE_NOOP("BVListToolBar", "Remove"),
     QT_TRANSLATE_NOOP("BVListToolBar", "Removes the selected rows (Del)"), ":/Icons/close.svg"},
};

} // namespace

BVListToolBar::BVListToolBar(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QHBoxLayout(this))
{
    static_assert(std::size(s_looks) == CommandCount);
    setObjectName(QStringLiteral("bv_listtoolbar"));
    setAttribute(Qt::WA_StyledBackground);
    m_layout->setContentsMargins(s_spacing, s_spacing, s_spacing, s_spacing);
    m_layout->setSpacing(s_spacing);
    m_layout->addStretch();
    for (int i = 0; i < CommandCount; ++i) {
        const CommandLook &look = s_looks[i];
        m_commands[i] =
            new QAction(createSvgIcon(QString::fromLatin1(look.icon)), tr(look.text), this);
        m_commands[i]->setToolTip(tr(look.toolTip));
        addButton(m_commands[i]);
    }
}

QToolButton *BVListToolBar::buttonOf(const QAction *action) const
{
    const auto buttons = findChildren<QToolButton *>(QString(), Qt::FindDirectChildrenOnly);
    for (QToolButton *button : buttons)
        if (button->defaultAction() == action)
            return button;
    return nullptr;
}

void BVListToolBar::addButton(QAction *action, QAction *before)
{
    QToolButton *follower = before ? buttonOf(before) : nullptr;
    auto *button = new QToolButton(this);
    button->setAutoRaise(true);
    button->setIconSize(QSize(s_iconSize, s_iconSize));
    button->setDefaultAction(action);
    m_layout->insertWidget(follower ? m_layout->indexOf(follower) : m_layout->count() - 1, button);
}

void BVListToolBar::removeButton(QAction *action)
{
    delete buttonOf(action);
}
