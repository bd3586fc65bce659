// SPDX-License-Identifier: MIT
#include "navigation/BVStackedWidget.h"

#include <QLayout>

BVStackedWidget::BVStackedWidget(QWidget *parent)
    : QStackedWidget(parent)
{
    connect(this, &QStackedWidget::currentChanged, this, &BVStackedWidget::onCurrentChanged);
}

void BVStackedWidget::onCurrentChanged()
{
    layout()->invalidate();
    updateGeometry(); // also while hidden, when the layout waits
}

QSize BVStackedWidget::sizeHint() const
{
    const QWidget *page = currentWidget();
    if (!page)
        return QFrame::sizeHint();
    return page->sizeHint().expandedTo(QSize(0, page->minimumHeight()));
}

QSize BVStackedWidget::minimumSizeHint() const
{
    const QWidget *page = currentWidget();
    return page ? page->minimumSizeHint() : QStackedWidget::minimumSizeHint();
}

bool BVStackedWidget::hasHeightForWidth() const
{
    return currentWidget() && currentWidget()->hasHeightForWidth();
}

int BVStackedWidget::heightForWidth(int width) const
{
    const int frame = 2 * frameWidth();
    return hasHeightForWidth() ? currentWidget()->heightForWidth(width - frame) + frame : -1;
}
