// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

/// Re-polishes a hidden window, such as the closed popup of a combo box, when it is next shown.
///
/// A form full of combo boxes has more widgets in their closed popups than the user can see; a
/// status change does not pay for them.
class RepolishOnShow : public QObject
{
    Q_OBJECT

public:
    /// Does so for @p window and all widgets inside it, once, however often it is asked for.
    static void ask(QWidget *window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit RepolishOnShow(QWidget *window);
};
