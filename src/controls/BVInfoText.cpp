// SPDX-License-Identifier: MIT
#include "controls/BVInfoText_p.h"

#include <QAbstractTextDocumentLayout>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <QWheelEvent>

#include <cmath>

namespace {

constexpr int s_paragraphGap = 4;   // px
constexpr int s_preferredLine = 60; // average characters
constexpr int s_shortestLine = 12;  // the same

void insertLink(QTextCursor &cursor, const QString &link)
{
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorHref(link);
    format.setFontUnderline(true);
    cursor.insertText(link, format);
}

void insertPlain(QTextCursor &cursor, QString text, bool detectLinks)
{
    static const QRegularExpression s_link(
        QStringLiteral("\\b(?:https?://|mailto:)[^\\s<>\"]*[^\\s<>\".,;:!?'()\\[\\]{}]"));
    text.replace(QLatin1Char('\n'), QChar::LineSeparator); // stays one paragraph
    int done = 0;
    for (auto it = s_link.globalMatch(text); detectLinks && it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        cursor.insertText(text.mid(done, match.capturedStart() - done), QTextCharFormat());
        insertLink(cursor, match.captured());
        done = match.capturedEnd();
    }
    cursor.insertText(text.mid(done), QTextCharFormat());
}

bool isRich(const QString &text, Qt::TextFormat format)
{
    return format == Qt::RichText || (format == Qt::AutoText && Qt::mightBeRichText(text));
}

/// Takes the colour that the toolkit gives to the links of rich text away again.
void uncolorLinks(QTextDocument *document)
{
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        QVector<QTextFragment> links;
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (it.fragment().charFormat().isAnchor())
                links.append(it.fragment());
        }
        for (const QTextFragment &link : qAsConst(links)) {
            QTextCursor cursor(document);
            cursor.setPosition(link.position());
            cursor.setPosition(link.position() + link.length(), QTextCursor::KeepAnchor);
            QTextCharFormat format = link.charFormat();
            format.clearForeground();
            cursor.setCharFormat(format);
        }
    }
}

QTextOption wrapping(QTextOption option)
{
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

} // namespace

BVInfoText::BVInfoText(QWidget *parent)
    : QTextBrowser(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    setOpenLinks(false);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

BVInfoText::~BVInfoText() = default;

void BVInfoText::setMessages(const QStringList &messages, Qt::TextFormat format, bool detectLinks)
{
    clear();
    QTextCursor cursor(document());
    for (const QString &message : messages) {
        if (!cursor.atStart()) {
            QTextBlockFormat paragraph;
            paragraph.setTopMargin(s_paragraphGap);
            cursor.insertBlock(paragraph, QTextCharFormat());
        }
        if (isRich(message, format))
            cursor.insertHtml(message);
        else
            insertPlain(cursor, message, detectLinks);
    }
    uncolorLinks(document());
    moveCursor(QTextCursor::Start);
    forgetSizes();
}

int BVInfoText::lineHeight() const
{
    return fontMetrics().lineSpacing() + frame().height();
}

QSize BVInfoText::sizeHint() const
{
    QTextDocument *text = measure();
    text->setTextWidth(-1);
    const int longestLine = int(std::ceil(text->idealWidth()));
    m_width = -1;
    const int width = qMin(longestLine, characters(s_preferredLine)) + frame().width();
    return {width, heightForWidth(width)};
}

QSize BVInfoText::minimumSizeHint() const
{
    return {characters(s_shortestLine) + frame().width(), lineHeight()};
}

int BVInfoText::heightForWidth(int width) const
{
    if (width != m_width) {
        measure()->setTextWidth(qMax(1, width - frame().width()));
        m_width = width;
        m_height = int(std::ceil(measure()->size().height())) + frame().height();
    }
    return m_height;
}

void BVInfoText::changeEvent(QEvent *event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        forgetSizes();
}

void BVInfoText::wheelEvent(QWheelEvent *event)
{
    event->ignore(); // nothing scrolls or zooms here; the page does
}

int BVInfoText::characters(int count) const
{
    return count * fontMetrics().averageCharWidth();
}

QSize BVInfoText::frame() const
{
    const QMargins margins = contentsMargins();
    return {margins.left() + margins.right(), margins.top() + margins.bottom()};
}

QTextDocument *BVInfoText::measure() const
{
    if (!m_measure) {
        m_measure.reset(document()->clone());
        m_measure->setDocumentMargin(document()->documentMargin());
        m_measure->setDefaultTextOption(wrapping(document()->defaultTextOption()));
        m_measure->documentLayout()->setPaintDevice(viewport());
    }
    return m_measure.get();
}

void BVInfoText::forgetSizes()
{
    m_measure.reset();
    m_width = -1;
    updateGeometry();
}
