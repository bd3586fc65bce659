// SPDX-License-Identifier: MIT
#include "controls/BVDisclosureHeader_p.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QToolTip>

namespace {

constexpr int s_chevronSize = 12;  // px
constexpr int s_shortestTitle = 6; // average characters that stay when a title is elided
constexpr int s_middleLightness = 128;

/// Tells a header as a button that is expanded or collapsed, rather than as a check box.
class HeaderAccessible : public QAccessibleWidget
{
public:
    explicit HeaderAccessible(BVDisclosureHeader *header)
        : QAccessibleWidget(header, QAccessible::Button)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString own = QAccessibleWidget::text(kind);
        return own.isEmpty() && kind == QAccessible::Name ? header()->plainText() : own;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = header()->isChecked();
        state.collapsed = !header()->isChecked();
        return state;
    }

    QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (header()->isEnabled())
            names.prepend(pressAction());
        return names;
    }

    void doAction(const QString &name) override
    {
        if (name == pressAction())
            header()->click(); // which a disabled button ignores
        else
            QAccessibleWidget::doAction(name);
    }

private:
    BVDisclosureHeader *header() const { return static_cast<BVDisclosureHeader *>(object()); }
};

QAccessibleInterface *headerInterface(const QString &key, QObject *object)
{
    auto *header = qobject_cast<BVDisclosureHeader *>(object);
    const bool isKnown = header && key == QLatin1String("BVDisclosureHeader");
    return isKnown ? new HeaderAccessible(header) : nullptr;
}

QString chevronPath(const QString &direction, const QString &variant)
{
    return QStringLiteral(":/Icons/chevron-%1%2.svg").arg(direction, variant);
}

} // namespace

BVDisclosureHeader::BVDisclosureHeader(QWidget *parent)
    : QToolButton(parent)
{
    // The toolkit forgets it with each application object, and refuses to keep it twice.
    QAccessible::installFactory(headerInterface);
    setCheckable(true);
    setChecked(true);
    setAutoRaise(true);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setIconSize(QSize(s_chevronSize, s_chevronSize));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(this, &QToolButton::toggled, this, &BVDisclosureHeader::onToggled);
    updateChevron();
}

QString BVDisclosureHeader::plainText() const
{
    QString text = this->text();
    int mark = text.indexOf(QLatin1Char('&'));
    while (mark >= 0) { // the character behind a mark stays, also when it is one
        text.remove(mark, 1);
        mark = text.indexOf(QLatin1Char('&'), mark + 1);
    }
    return text;
}

QSize BVDisclosureHeader::minimumSizeHint() const
{
    const QSize full = sizeHint();
    const int title = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    const int shortest = qMin(title, s_shortestTitle * fontMetrics().averageCharWidth());
    return {full.width() - title + shortest, full.height()};
}

bool BVDisclosureHeader::event(QEvent *event)
{
    const bool isElided = event->type() == QEvent::ToolTip && width() < sizeHint().width();
    if (!isElided || !toolTip().isEmpty())
        return QToolButton::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), plainText(), this);
    return true;
}

void BVDisclosureHeader::changeEvent(QEvent *event)
{
    QToolButton::changeEvent(event);
    const QEvent::Type type = event->type();
    if (type == QEvent::LayoutDirectionChange || type == QEvent::PaletteChange ||
        type == QEvent::StyleChange || type == QEvent::EnabledChange)
        updateChevron();
}

void BVDisclosureHeader::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    const Qt::Key forward = isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
    const Qt::Key back = isRightToLeft() ? Qt::Key_Right : Qt::Key_Left;
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        QToolButton::keyPressEvent(event);
    else if (key == Qt::Key_Plus || key == forward)
        setChecked(true);
    else if (key == Qt::Key_Minus || key == back)
        setChecked(false);
    else if (key != Qt::Key_Return && key != Qt::Key_Enter)
        QToolButton::keyPressEvent(event);
    else if (!event->isAutoRepeat())
        click();
}

void BVDisclosureHeader::paintEvent(QPaintEvent * /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    // Open is no button held down. A sheet has a rule for it; a plain style would sink it.
    if (!style()->inherits("QStyleSheetStyle"))
        option.state &= ~QStyle::State_On;
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
}

void BVDisclosureHeader::onToggled()
{
    updateChevron();
    if (!QAccessible::isActive())
        return;
    QAccessible::State changed;
    changed.expanded = true;
    changed.collapsed = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void BVDisclosureHeader::updateChevron()
{
    const QString closed = isRightToLeft() ? QStringLiteral("left") : QStringLiteral("right");
    const QString direction = isChecked() ? QStringLiteral("down") : closed;
    const bool isLight = palette().color(foregroundRole()).lightness() > s_middleLightness;
    const QString variant = isLight ? QStringLiteral("-light") : QString();
    const QString disabled = isLight ? variant : QStringLiteral("-disabled");
    QIcon chevron(chevronPath(direction, variant));
    chevron.addFile(chevronPath(direction, disabled), QSize(), QIcon::Disabled);
    setIcon(chevron);
}
