// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QBrush>
#include <QHash>
#include <QLocale>
#include <QMargins>
#include <QPointer>
#include <QStyledItemDelegate>

class BVFormatter;
class QAbstractItemView;
class QMenu;
class QTreeView;

/// The delegate of the library's trees and tables.
///
/// A cell is painted in the colour of its status (role 280, see BVStatusColor), bold, italic,
/// marked or as a group header by its roles. Numbers (double) are shown by a formatter, the one
/// given for the column or else the delegate's own, and edited in a BVValueEdit with the same
/// settings; a text that is not acceptable leaves the value as it is. Cells that the standard locks
/// (BVWidgetStatus::StandardLocked) are not edited. Editors that other values have belong to the
/// toolkit.
class BVWIDGETS_EXPORT BVItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Roles with a bool that the delegate paints.
    enum Role {
        BoldRole = 283,
        ItalicRole = 284,
        MarkedRole = 285,
        GroupHeaderRole = 300,
    };

    explicit BVItemDelegate(QObject *parent = nullptr);
    ~BVItemDelegate() override;

    /// The formatter of a column: the one given for it or the delegate's own, which is owned.
    BVFormatter *formatter(int column = -1) const;
    /// Gives a column a formatter, which stays with its owner; null takes it away.
    void setFormatter(int column, BVFormatter *formatter);
    /// The formatter of a cell, never null: by default that of its column. For rows of different
    /// quantities; when another one's settings change, sizeHintChanged() lets views follow.
    virtual BVFormatter *formatterFor(const QModelIndex &index) const;

    /// The text in the cell as a view with the locale shows it, with newlines between its lines.
    QString getDisplayedText(const QModelIndex &index, const QLocale &locale = QLocale()) const;
    /// Whether an editor opens in the cell: its flags say so and the standard does not lock it.
    virtual bool isEditable(const QModelIndex &index) const;
    /// Whether the cell looks different under the mouse. Off at first.
    virtual bool repaintsOnHover(const QModelIndex &index) const;
    void setRepaintsOnHover(bool repaint) { m_repaintsOnHover = repaint; }
    /// What is painted behind a marked cell or a group header; no brush for others.
    virtual QBrush rowTint(const QModelIndex &index) const;
    /// Adds entries for a cell to the menu that is about to open at @p position in the view's
    /// viewport; by default none.
    virtual void provideContextMenuActions(const QModelIndex &index, const QPoint &position,
                                           QAbstractItemView *view, QMenu *menu);

    /// Where check boxes stand in their cells, in front of the text (left, as at first) or at its
    /// end (right), and the space around them.
    Qt::Alignment checkIndicatorAlignment() const { return m_checkIndicatorAlignment; }
    void setCheckIndicatorAlignment(Qt::Alignment alignment);
    QMargins checkIndicatorMargins() const { return m_checkIndicatorMargins; }
    void setCheckIndicatorMargins(const QMargins &margins);

    /// Keeps the tree's indentation such that children start below the text of a parent with an
    /// icon, also when style or icon size change. Null is ignored.
    void installLeftIconIndentationUpdateHandler(QTreeView *view);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    bool placesCheckIndicator(const QStyleOptionViewItem &option) const;
    QRect checkRect(const QStyleOptionViewItem &option) const;
    QRect contentRect(const QStyleOptionViewItem &option) const;
    void paintContent(QPainter *painter, QStyleOptionViewItem option,
                      const QModelIndex &index) const;
    void watchFormatter(BVFormatter *formatter);

    BVFormatter *m_formatter; // child of this
    QHash<int, QPointer<BVFormatter>> m_columnFormatters;
    Qt::Alignment m_checkIndicatorAlignment = Qt::AlignLeft;
    QMargins m_checkIndicatorMargins;
    bool m_repaintsOnHover = false;
};
