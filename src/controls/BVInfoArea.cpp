// SPDX-License-Identifier: MIT
#include "controls/BVInfoArea.h"

#include "controls/BVInfoText_p.h"
#include "platform/PropertyChangeFilter.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QToolButton>
#include <QUrl>

namespace {

constexpr int s_iconSize = 16; // px
constexpr int s_gap = 8;       // px, between icon, text and button
constexpr int s_middleLightness = 128;
constexpr QMargins s_margins = {8, 5, 6, 5};

struct Kind
{
    const char *icon; // file name; null for none
    const char *name;
    QAccessible::Role role;
};

// In the order of IconType.
constexpr Kind s_kinds[] = {
    {nullptr, QT_TRANSLATE_NOOP("BVInfoArea", "Information"), QAccessible::Notification},
    {"info", QT_TRANSLATE_NOOP("BVInfoArea", "Information"), QAccessible::Notification},
    {"warning", QT_TRANSLATE_NOOP("BVInfoArea", "Warning"), QAccessible::AlertMessage},
    {"error", QT_TRANSLATE_NOOP("BVInfoArea", "Error"), QAccessible::AlertMessage},
    {"question", QT_TRANSLATE_NOOP("BVInfoArea", "Question"), QAccessible::Notification},
};

/// Tells an area as a notification or an alert, with its messages for a description.
class AreaAccessible : public QAccessibleWidget
{
public:
    explicit AreaAccessible(BVInfoArea *area)
        : QAccessibleWidget(area)
    {
    }

    QAccessible::Role role() const override { return s_kinds[area()->iconType()].role; }

    QString text(QAccessible::Text kind) const override
    {
        const QString own = QAccessibleWidget::text(kind);
        if (!own.isEmpty())
            return own;
        if (kind == QAccessible::Name)
            return BVInfoArea::tr(s_kinds[area()->iconType()].name);
        const auto *text = area()->findChild<BVInfoText *>(QString(), Qt::FindDirectChildrenOnly);
        return kind == QAccessible::Description && text ? text->toPlainText() : own;
    }

private:
    BVInfoArea *area() const { return static_cast<BVInfoArea *>(object()); }
};

QAccessibleInterface *areaInterface(const QString &key, QObject *object)
{
    auto *area = qobject_cast<BVInfoArea *>(object);
    return area && key == QLatin1String("BVInfoArea") ? new AreaAccessible(area) : nullptr;
}

QIcon icon(const QString &name)
{
    return QIcon(QStringLiteral(":/Icons/%1.svg").arg(name));
}

} // namespace

/// Shows the icon beside the first line of the text, sharp at every device pixel ratio.
class BVInfoArea::Icon : public QWidget
{
public:
    explicit Icon(QWidget *parent)
        : QWidget(parent)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

    void setIcon(const QIcon &icon)
    {
        m_icon = icon;
        setVisible(!icon.isNull());
        update();
    }

    void setLineHeight(int height) { setFixedSize(s_iconSize, qMax(s_iconSize, height)); }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        m_icon.paint(&painter, rect(), Qt::AlignCenter,
                     isEnabled() ? QIcon::Normal : QIcon::Disabled);
    }

private:
    QIcon m_icon;
};

BVInfoArea::BVInfoArea(QWidget *parent)
    : BVStatusControl<QFrame>(parent)
    , m_icon(new Icon(this))
    , m_text(new BVInfoText(this))
    , m_close(new QToolButton(this))
{
    // The toolkit forgets it with each application object, and refuses to keep it twice.
    QAccessible::installFactory(areaInterface);
    setFrameShape(QFrame::StyledPanel);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_close->setAutoRaise(true);
    m_close->setIconSize(QSize(s_iconSize, s_iconSize));
    m_close->setFocusPolicy(Qt::StrongFocus);
    m_close->hide();
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(s_margins);
    row->setSpacing(s_gap);
    row->addWidget(m_icon, 0, Qt::AlignTop);
    row->addWidget(m_text, 1);
    row->addWidget(m_close, 0, Qt::AlignTop);
    setFocusProxy(m_text);
    connect(m_close, &QToolButton::clicked, this, &BVInfoArea::dismiss);
    connect(m_text, &QTextBrowser::anchorClicked, this,
            [this](const QUrl &link) { Q_EMIT sigLinkActivated(link.toString()); });
    updateIcon();
}

void BVInfoArea::setIconType(IconType type)
{
    if (type == m_iconType || type < NoIcon || type > Question)
        return;
    m_iconType = type;
    updateIcon();
    PropertyChangeFilter::repolish(this, true);
}

void BVInfoArea::setMessages(const QStringList &messages)
{
    QStringList shown = messages;
    shown.removeAll(QString());
    shown.removeDuplicates();
    if (shown == m_messages)
        return;
    m_messages = shown;
    updateText();
    announce();
}

void BVInfoArea::setMessage(const QString &message)
{
    setMessages({message});
}

void BVInfoArea::addMessage(const QString &message)
{
    setMessages(m_messages + QStringList(message));
}

void BVInfoArea::clear()
{
    setMessages(QStringList());
}

void BVInfoArea::setTextFormat(Qt::TextFormat format)
{
    if (format == m_textFormat)
        return;
    m_textFormat = format;
    updateText();
}

void BVInfoArea::setDetectLinks(bool detect)
{
    if (detect == m_detectLinks)
        return;
    m_detectLinks = detect;
    updateText();
}

QSize BVInfoArea::sizeHint() const
{
    QSize hint = BVStatusControl<QFrame>::sizeHint();
    if (m_width >= 0)
        hint.setHeight(heightForWidth(m_width));
    return hint;
}

bool BVInfoArea::isClosable() const
{
    return !m_close->isHidden();
}

void BVInfoArea::setClosable(bool closable)
{
    m_close->setVisible(closable);
}

void BVInfoArea::dismiss()
{
    if (isHidden())
        return;
    hide();
    Q_EMIT sigClosed();
}

void BVInfoArea::changeEvent(QEvent *event)
{
    BVStatusControl<QFrame>::changeEvent(event);
    const QEvent::Type type = event->type();
    if (type == QEvent::FontChange || type == QEvent::StyleChange ||
        type == QEvent::PaletteChange || type == QEvent::LanguageChange)
        updateIcon();
}

void BVInfoArea::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && isClosable())
        dismiss();
    else
        BVStatusControl<QFrame>::keyPressEvent(event);
}

void BVInfoArea::resizeEvent(QResizeEvent *event)
{
    BVStatusControl<QFrame>::resizeEvent(event);
    if (m_width == width())
        return;
    m_width = width();
    updateGeometry(); // the height that the layout may give at most has changed with the width
}

void BVInfoArea::showEvent(QShowEvent *event)
{
    BVStatusControl<QFrame>::showEvent(event);
    updateIcon(); // the style has settled the height of a line
    announce();
}

void BVInfoArea::announce()
{
    if (!QAccessible::isActive() || !isVisible() || m_messages.isEmpty())
        return;
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void BVInfoArea::updateIcon()
{
    const Kind &kind = s_kinds[m_iconType];
    m_icon->setLineHeight(m_text->lineHeight());
    m_icon->setIcon(kind.icon ? icon(QLatin1String(kind.icon)) : QIcon());
    m_text->setAccessibleName(tr(kind.name));
    const bool isLight = m_text->palette().color(QPalette::Text).lightness() > s_middleLightness;
    m_close->setIcon(icon(isLight ? QStringLiteral("close-light") : QStringLiteral("close")));
    m_close->setToolTip(tr("Close"));
    m_close->setAccessibleName(tr("Close"));
}

void BVInfoArea::updateText()
{
    m_text->setMessages(m_messages, m_textFormat, m_detectLinks);
}
