// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QStackedWidget>

/// A stack of pages that asks for the room of its current page only, however large the others are.
///
/// The surroundings read the size again when the current page changes.
class BVWIDGETS_EXPORT BVStackedWidget : public QStackedWidget
{
    Q_OBJECT

public:
    explicit BVStackedWidget(QWidget *parent = nullptr);

    /// The current page's size hint, at least as high as the page's minimum height; that of the
    /// frame without a page.
    QSize sizeHint() const override;
    /// That of the current page.
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    /// The height that the current page needs for @p width, with the frame; -1 if it is
    /// indifferent.
    int heightForWidth(int width) const override;

private:
    void onCurrentChanged();
};
