// SPDX-License-Identifier: MIT
#pragma once

#include <QToolButton>

/// The header of a section: a button over its whole width with a chevron and the title, checked
/// while the section is open.
///
/// Beside the keys of every button, Return toggles; "+" and the arrow key of the reading direction
/// open, "-" and the other arrow key close. A title that does not fit is elided and told in the
/// tool tip. The chevron is light or dark as the text is.
class BVDisclosureHeader : public QToolButton
{
    Q_OBJECT

public:
    explicit BVDisclosureHeader(QWidget *parent);

    /// The text without the marks of its mnemonic.
    QString plainText() const;

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void onToggled();
    void updateChevron();
};
