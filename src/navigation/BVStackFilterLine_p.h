// SPDX-License-Identifier: MIT
#pragma once

#include <QPersistentModelIndex>
#include <QPointer>
#include <QSet>
#include <QVector>
#include <QWidget>

class BVLineEdit;
class QTimer;
class QToolButton;
class BVDragTreeWidget;
class QTreeWidgetItem;

/// A line to type in that hides the rows of a navigation tree that do not have the text, or do not
/// need input, and opens the branches of those that do. Rows above one that stays stay, too.
///
/// Rows that the application has hidden stay hidden. Escape empties the line, Return and the arrow
/// down lead to the tree.
class BVStackFilterLine : public QWidget
{
    Q_OBJECT

public:
    BVStackFilterLine(BVDragTreeWidget *tree, QWidget *parent);

    /// Shows all rows again and stops following the tree.
    void release();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void watch();
    void schedule();
    void apply();
    bool isActive() const;
    bool matches(const QTreeWidgetItem *row) const;
    bool filterBelow(QTreeWidgetItem *row, QVector<QPersistentModelIndex> *closed);
    void showRow(QTreeWidgetItem *row, bool show);
    void expand(const QVector<QPersistentModelIndex> &rows, bool expand);
    void undo();
    void focusTree();

    QPointer<BVDragTreeWidget> m_tree; // not owned
    BVLineEdit *m_edit;                // child of this
    QToolButton *m_needInput;          // child of this
    QTimer *m_timer;                   // child of this
    // Rows may be gone; they are only looked for among those that are there.
    QSet<const QTreeWidgetItem *> m_hidden;
    QSet<const QTreeWidgetItem *> m_opened;
};
