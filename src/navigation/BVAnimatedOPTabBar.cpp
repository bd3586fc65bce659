// SPDX-License-Identifier: MIT
#include "navigation/BVAnimatedOPTabBar.h"

#include <QRegularExpression>

namespace {

struct StateIcon
{
    BVAnimatedOPTabBar::OperationRole role;
    const char *name;
    const char *darkName; // null: its shape in a bright colour
    const char *text;
};

// The first state that is set decides.
constexpr StateIcon s_stateIcons[] = {
    {BVAnimatedOPTabBar::OperationSkipped, "icon_jump", nullptr,
     QT_TRANSLATE_NOOP("BVAnimatedOPTabBar", "skipped")},
    {BVAnimatedOPTabBar::OperationLocked, "icon_lock", "icon_lock_bright",
     QT_TRANSLATE_NOOP("BVAnimatedOPTabBar", "locked")},
    {BVAnimatedOPTabBar::OperationSemiLocked, "icon_semi_locked", nullptr,
     QT_TRANSLATE_NOOP("BVAnimatedOPTabBar", "partly locked")},
    {BVAnimatedOPTabBar::OperationCycled, "icon_cycled", nullptr,
     QT_TRANSLATE_NOOP("BVAnimatedOPTabBar", "cycled")},
};

constexpr int s_longestLetters = 3; // that a text in parentheses keeps

QString pictureUrl(const char *name)
{
    return name ? QStringLiteral(":/Style/BvWidgets/BVOPTabBar/op_tab_%1.svg")
                      .arg(QLatin1String(name))
                : QString();
}

QString without(QString text, const QRegularExpression &pattern)
{
    return text.remove(pattern);
}

} // namespace

BVAnimatedOPTabBar::BVAnimatedOPTabBar(QWidget *parent)
    : BVAnimatedTabBar(parent)
{
    setImageAfterTabs(pictureUrl("triangle"));
    setTextReducing(&BVAnimatedOPTabBar::fillTextReducingMap);
}

void BVAnimatedOPTabBar::setOperationSkipped(int index, bool skipped)
{
    setData(index, skipped, OperationSkipped);
    updateOPState(index);
}

void BVAnimatedOPTabBar::setOperationLocked(int index, bool locked)
{
    setData(index, locked, OperationLocked);
    updateOPState(index);
}

void BVAnimatedOPTabBar::setOperationSemiLocked(int index, bool semiLocked)
{
    setData(index, semiLocked, OperationSemiLocked);
    updateOPState(index);
}

void BVAnimatedOPTabBar::setOperationCycled(int index, bool cycled)
{
    setData(index, cycled, OperationCycled);
    updateOPState(index);
}

void BVAnimatedOPTabBar::updateOPState(int index)
{
    for (const StateIcon &state : s_stateIcons) {
        if (!data(index, state.role).toBool())
            continue;
        setIcon(index, pictureUrl(state.name), pictureUrl(state.darkName), tr(state.text));
        return;
    }
    setIconUrl(index, QString());
}

void BVAnimatedOPTabBar::removeAllOperations()
{
    clearTabs();
}

void BVAnimatedOPTabBar::reverseSequence(bool reverse)
{
    setImageAfterTabsMirrored(reverse);
}

void BVAnimatedOPTabBar::fillTextReducingMap(QMap<int, QString> &map, const QString &text)
{
    static const QRegularExpression s_hyphens(QStringLiteral("-+"));
    static const QRegularExpression s_notNumbering(QStringLiteral("[^0-9\\().]"));
    static const QRegularExpression s_notLetters(QStringLiteral("[^a-zA-Z\\()]"));
    const QString letters = without(text, s_notLetters);
    const bool isEnclosed =
        letters.startsWith(QLatin1Char('(')) && letters.endsWith(QLatin1Char(')'));
    map.clear();
    map.insert(0, text);
    map.insert(1, without(text, s_hyphens));
    map.insert(2, without(text, s_notNumbering));
    map.insert(3, letters.left(isEnclosed ? s_longestLetters : 1));
}
