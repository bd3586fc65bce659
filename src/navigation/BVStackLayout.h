// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QLayout>
#include <QVector>

/// A layout that shows one of its items at a time and asks for the room of that one only.
///
/// Items are widgets, layouts, spacers or any other layout item. The current one gets the contents
/// rectangle. The others keep their size, so that they stay laid out, but lie up and to the left of
/// the parent widget's origin, where nobody sees them: at (-w, -h, w, h). A nested layout that has
/// no size yet gets that of the contents rectangle, other items without one their size hint. A page
/// that the application has made a window of its own is left alone.
///
/// Pages that lie outside are still reached with the Tab key. A layout that hides the other widgets
/// shows the current item's own widget and hides those of the others; the widgets inside nested
/// layouts are not touched.
///
/// The first item becomes current, until the application has chosen one, or none, by itself; from
/// then on only its choice counts, also in a layout that was emptied and is filled again. When the
/// current item leaves the layout, the last of the others becomes current.
///
/// Margins and spacing are 0. The layout owns its items, their widgets belong to the parent widget,
/// and a deleted widget takes its item along. GUI thread only.
class BVWIDGETS_EXPORT BVStackLayout : public QLayout
{
    Q_OBJECT
    Q_PROPERTY(int currentIndex READ indexOfCurrentItem WRITE setCurrentItemByIndex)

public:
    explicit BVStackLayout(QWidget *parent = nullptr);
    explicit BVStackLayout(bool hideOtherWidgets, QWidget *parent = nullptr);
    ~BVStackLayout() override;

    /// Appends the item and takes it over.
    void addItem(QLayoutItem *item) override;
    /// Inserts the item before position @p index and takes it over. A negative or too large index
    /// appends. Null, an item that is already here and a layout that has another parent are ignored
    /// and stay with the caller.
    void insertItem(int index, QLayoutItem *item);
    /// Inserts the widget as an item. A widget that is in a layout already moves here. Null is
    /// ignored.
    void insertWidget(int index, QWidget *widget);

    int count() const override { return m_items.size(); }
    /// Null if there is no such index.
    QLayoutItem *itemAt(int index) const override { return m_items.value(index); }
    /// Removes the item, which then belongs to the caller. Null if there is no such index.
    QLayoutItem *takeAt(int index) override;

    /// The position of the current item; -1 without one.
    int indexOfCurrentItem() const { return m_items.indexOf(m_currentItem); }
    /// Makes the item at @p index current; -1 chooses no item. Any other index without an item is
    /// ignored.
    void setCurrentItemByIndex(int index);

    void setGeometry(const QRect &rect) override;
    /// The current item's size with the margins; (0, 0) without a current item. The same holds for
    /// the minimum and the maximum.
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    QSize maximumSize() const override;
    /// As the current item does; no directions without one.
    Qt::Orientations expandingDirections() const override;
    bool hasHeightForWidth() const override;
    /// That of the current item, with the margins; -1 without a height for width.
    int heightForWidth(int width) const override;
    int minimumHeightForWidth(int width) const override;
    void invalidate() override;

private:
    bool adoptContentOf(QLayoutItem *item);
    void makeCurrent(QLayoutItem *item);
    void updateVisibility();
    void showCurrentWidget();
    void moveOutside(QLayoutItem *item) const;
    QSize sizeOutside(QLayoutItem *item) const;
    QSize withMargins(const QSize &size) const;

    QVector<QLayoutItem *> m_items;
    QLayoutItem *m_currentItem = nullptr; // one of m_items
    bool m_currentItemChosen = false;     // by the application
    bool m_hideOtherWidgets = false;
    QRect m_lastGeometry;
    bool m_dirty = true;
};
