// SPDX-License-Identifier: MIT
#pragma once

#include <BVResizableWidget.h>

class BVButton;

/// A panel with a title that the user drags larger than its place in the form, over the window. A
/// button beside the title enlarges it and brings it back.
///
/// Its name in menus is the title of the widget as a window.
class FloatingPanel : public BVResizableWidget
{
    Q_OBJECT

public:
    /// Takes the content over.
    FloatingPanel(const QString &title, QWidget *content, QWidget *parent = nullptr);

    /// Enlarges the panel, or brings it back to its place while it floats.
    void toggle();

private:
    QWidget *createHeader();
    void showState();

    BVButton *m_button = nullptr;
};
