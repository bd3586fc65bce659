// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeWidget>

#include <Qt>

Q_DECLARE_METATYPE(QTreeWidgetItem *) // for signal spies

/// Item trees as short texts: "a(b,c),d" has the top-level rows a and d, a with children b and c.
/// Rows carry their letter's position in the alphabet in the role Qt::UserRole.
namespace TreeText {

/// To be called in initTestCase().
inline void registerTypes()
{
    qRegisterMetaType<QTreeWidgetItem *>("QTreeWidgetItem*");
    qRegisterMetaType<QList<QTreeWidgetItem *>>("QList<QTreeWidgetItem*>");
}

inline QTreeWidgetItem *item(const QTreeWidget &tree, QChar name)
{
    return tree.findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0);
}

inline QList<QTreeWidgetItem *> items(const QTreeWidget &tree, const QString &names)
{
    QList<QTreeWidgetItem *> found;
    for (const QChar name : names)
        found.append(item(tree, name));
    return found;
}

inline void build(QTreeWidget &tree, const QString &text)
{
    QList<QTreeWidgetItem *> path{tree.invisibleRootItem()};
    QTreeWidgetItem *last = nullptr;
    for (const QChar c : text) {
        if (c == QLatin1Char('('))
            path.append(last);
        else if (c == QLatin1Char(')'))
            path.removeLast();
        if (!c.isLetter())
            continue;
        last = new QTreeWidgetItem(path.constLast(), {QString(c)});
        last->setData(0, Qt::UserRole, c.unicode() - 'a');
    }
}

inline QString text(const QTreeWidgetItem *parent)
{
    QStringList rows;
    for (int i = 0; i < parent->childCount(); ++i) {
        const QString below = text(parent->child(i));
        rows.append(parent->child(i)->text(0) + (below.isEmpty() ? below : QStringLiteral("(%1)").arg(below)));
    }
    return rows.join(QLatin1Char(','));
}

inline QString text(const QTreeWidget &tree)
{
    return text(tree.invisibleRootItem());
}

/// The names of the selected rows, in alphabetical order, and that of the current one.
inline QString selection(const QTreeWidget &tree)
{
    QStringList names;
    for (const QTreeWidgetItem *selected : tree.selectedItems())
        names.append(selected->text(0));
    names.sort();
    return names.join(QString()) + QLatin1Char('|') + (tree.currentItem() ? tree.currentItem()->text(0) : QString());
}

} // namespace TreeText
