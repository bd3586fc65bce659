// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QHash>
#include <QHeaderView>

/// A header with check boxes.
///
/// A section has a check box while the model's header data says so in
/// BVTreeViewModel::HeaderCheckBoxRole; HeaderCheckBoxAlignmentRole holds its alignment, by default
/// to the left and in the middle of the height. The text gives way to a box at the left or right;
/// one in the middle stands over it. The boxes are painted as the style paints those of items, and
/// their states belong to the header, by logical index.
///
/// The boxes take the mouse and the keyboard: with a box, a horizontal header can be reached with
/// Tab, the arrow keys go from box to box, Home and End to the outermost ones, and Space checks. A
/// partially checked box becomes checked.
class BVWIDGETS_EXPORT BVCustomHeaderView : public QHeaderView
{
    Q_OBJECT

public:
    /// An empty @p indicatorSize leaves the size of the boxes to the style.
    explicit BVCustomHeaderView(Qt::Orientation orientation, const QSize &indicatorSize = QSize(),
                                QWidget *parent = nullptr);

    bool hasCheckBox(int section) const;
    Qt::CheckState checkState(int section) const;
    /// Shows a state, without a signal.
    void setCheckState(Qt::CheckState state, int section);
    /// As a click that leaves the box in that state. False if the section has no box.
    bool setChecked(bool checked, int section);
    /// The section whose box the keyboard operates; -1 while the header has no focus.
    int focusedCheckBox() const;

    void setModel(QAbstractItemModel *model) override;

Q_SIGNALS:
    /// A box has been checked or unchecked, other than by setCheckState().
    void sigCheckStateChanged(bool checked, int section);
    /// The keyboard has come to a section's box, which may be out of sight.
    void sigBoxFocused(int section);

protected:
    void paintSection(QPainter *painter, const QRect &rect, int logicalIndex) const override;
    QSize sectionSizeFromContents(int logicalIndex) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    Qt::Alignment boxAlignment(int section) const;
    QSize boxSize() const;
    QRect boxRect(int section, const QRect &sectionRect) const;
    int boxAt(const QPoint &position) const;
    void paintBox(QPainter *painter, const QRect &rect, int section) const;
    void paintBackground(QPainter *painter, const QRect &rect, int section) const;
    QVector<int> sectionsWithBox() const;
    void goToBox(int key);
    void onBoxesChanged();
    void onSectionResized(int before, int after);
    void describe();
    void updateBoxes();

    QSize m_indicatorSize;
    QHash<int, Qt::CheckState> m_states; // of boxes that are not unchecked
    int m_pressedBox = -1;
    int m_hoveredBox = -1;
    int m_currentBox = -1;
    QVector<QMetaObject::Connection> m_connections; // to the model
    mutable QSize m_styleBoxSize;                   // empty while it is not known
};
