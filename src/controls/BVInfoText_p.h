// SPDX-License-Identifier: MIT
#pragma once

#include <QTextBrowser>

#include <memory>

class QTextDocument;

/// The text of an information area: as high as its text is at its width, never scrolled, broken
/// inside a word where the word is longer than a line.
///
/// The text can be selected with mouse and keyboard; Tab goes from link to link. Links have the
/// colour of the text, so that they are legible on every surface, and are underlined.
class BVInfoText : public QTextBrowser
{
    Q_OBJECT

public:
    explicit BVInfoText(QWidget *parent);
    ~BVInfoText() override;

    /// Shows each message as a paragraph. AutoText guesses for each; every format but that and
    /// RichText shows the text as it is.
    void setMessages(const QStringList &messages, Qt::TextFormat format, bool detectLinks);

    /// The height of a line with what stands above and below it.
    int lineHeight() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void changeEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    int characters(int count) const;
    QSize frame() const;
    QTextDocument *measure() const;
    void forgetSizes();

    mutable std::unique_ptr<QTextDocument> m_measure; // a copy to lay out at any width
    mutable int m_width = -1;                         // the last one asked for, with its height
    mutable int m_height = 0;
};
