// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLinkButton>
#include <QImage>
#include <QPointer>

class QAction;

/// A button of a start page that shows an action.
///
/// Return and Enter click it, arrow keys, Home and End move the focus to the other buttons in the
/// same page.
class BVStartPageButton : public QCommandLinkButton
{
    Q_OBJECT

public:
    /// Shows nothing until updateButton(). The page is the parent.
    BVStartPageButton(QAction *action, const QIcon &icon, QWidget *page);

    /// Null once the action has been deleted.
    QAction *action() const { return m_action; }
    /// Takes over what the action says of itself.
    void updateButton();
    /// A picture of the button, for the screen that it is on; null for a button without a size.
    QImage picture();

    /// Makes two buttons in a row the same height.
    static void pair(BVStartPageButton *left, BVStartPageButton *right);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    bool moveFocus(Qt::Key key);

    QPointer<QAction> m_action; // not owned
    QPointer<QWidget> m_page;
    QPointer<BVStartPageButton> m_partner; // in the same row
    QIcon m_ownIcon;                       // instead of the action's
    QIcon m_arrow;                         // of the style, without either
};
