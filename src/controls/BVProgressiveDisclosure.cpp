// SPDX-License-Identifier: MIT
#include "controls/BVProgressiveDisclosure.h"

#include "controls/BVDisclosureArea_p.h"
#include "controls/BVDisclosureHeader_p.h"
#include "foundation/BVWidgetStatusHandler.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QChildEvent>
#include <QStyle>
#include <QVBoxLayout>

namespace {

constexpr int s_longestAnimation = 180; // ms

/// Tells a section as a group with its title for a name.
class SectionAccessible : public QAccessibleWidget
{
public:
    explicit SectionAccessible(BVProgressiveDisclosure *section)
        : QAccessibleWidget(section, QAccessible::Grouping)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString own = QAccessibleWidget::text(kind);
        if (!own.isEmpty() || kind != QAccessible::Name)
            return own;
        const auto *header =
            object()->findChild<BVDisclosureHeader *>(QString(), Qt::FindDirectChildrenOnly);
        return header ? header->plainText() : own;
    }
};

QAccessibleInterface *sectionInterface(const QString &key, QObject *object)
{
    auto *section = qobject_cast<BVProgressiveDisclosure *>(object);
    const bool isKnown = section && key == QLatin1String("BVProgressiveDisclosure");
    return isKnown ? new SectionAccessible(section) : nullptr;
}

} // namespace

BVProgressiveDisclosure::BVProgressiveDisclosure(QWidget *parent)
    : BVStatusControl<QFrame>(parent)
    , m_header(new BVDisclosureHeader(this))
    , m_area(new BVDisclosureArea(this))
    , m_handler(new BVWidgetStatusHandler(this))
{
    // The toolkit forgets it with each application object, and refuses to keep it twice.
    QAccessible::installFactory(sectionInterface);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_header);
    column->addWidget(m_area);
    setFocusProxy(m_header);
    setContentWidget(new QWidget);
    connect(m_header, &QToolButton::toggled, this, &BVProgressiveDisclosure::setOpen);
    connect(m_area, &BVDisclosureArea::settled, this, &BVProgressiveDisclosure::updatePolicy);
}

void BVProgressiveDisclosure::openAround(const QWidget *widget)
{
    QWidget *around = widget ? widget->parentWidget() : nullptr;
    if (!around)
        return;
    openAround(around);
    if (auto *section = qobject_cast<BVProgressiveDisclosure *>(around))
        section->setOpen(true);
}

QString BVProgressiveDisclosure::title() const
{
    return m_header->text();
}

void BVProgressiveDisclosure::setTitle(const QString &title)
{
    m_header->setText(title);
}

QWidget *BVProgressiveDisclosure::contentWidget() const
{
    return m_area->content();
}

void BVProgressiveDisclosure::setContentWidget(QWidget *widget)
{
    if (!widget || widget == contentWidget())
        return;
    m_area->setContent(widget);
    widget->installEventFilter(this);
    followStatus(widget);
    const QObjectList children = widget->children();
    for (QObject *child : children)
        followStatus(qobject_cast<QWidget *>(child));
}

void BVProgressiveDisclosure::setContentLayout(QLayout *layout)
{
    if (!layout || layout->parent())
        return;
    auto *page = new QWidget;
    page->setLayout(layout);
    setContentWidget(page);
}

bool BVProgressiveDisclosure::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == contentWidget()) {
        // A child that is being deleted is no widget any more; the handler learns of it by itself.
        if (event->type() == QEvent::ChildAdded)
            followStatus(qobject_cast<QWidget *>(static_cast<QChildEvent *>(event)->child()));
        else if (event->type() == QEvent::ChildRemoved)
            m_handler->detach(qobject_cast<QWidget *>(static_cast<QChildEvent *>(event)->child()));
    }
    return BVStatusControl<QFrame>::eventFilter(watched, event);
}

void BVProgressiveDisclosure::setOpen(bool open)
{
    if (open == m_open)
        return;
    m_open = open;
    m_header->setChecked(open);
    if (!open) {
        const QPointer<BVProgressiveDisclosure> self(this);
        moveFocusToHeader(); // ends an edit, whose slots may delete or open the section
        if (!self || m_open != open)
            return;
    }
    updatePolicy();
    m_area->setOpen(open, duration());
    Q_EMIT sigClosed(!open);
}

void BVProgressiveDisclosure::toggle()
{
    setOpen(!m_open);
}

int BVProgressiveDisclosure::duration() const
{
    const int wanted = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    return m_animated ? qMin(wanted, s_longestAnimation) : 0;
}

void BVProgressiveDisclosure::followStatus(QWidget *child)
{
    m_handler->attach(child);
    if (BVWidgetStatus::status(child) != BVWidgetStatus::Normal)
        m_handler->updateParentStatus();
}

void BVProgressiveDisclosure::moveFocusToHeader()
{
    const QWidget *focus = window()->focusWidget();
    if (focus && m_area->isAncestorOf(focus))
        m_header->setFocus(Qt::OtherFocusReason);
}

void BVProgressiveDisclosure::updatePolicy()
{
    const bool isFixed = !m_open || !m_area->isQuiteOpen();
    if (isFixed == m_isHeightFixed)
        return;
    m_isHeightFixed = isFixed;
    QSizePolicy policy = sizePolicy();
    if (isFixed) {
        m_openPolicy = policy.verticalPolicy();
        policy.setVerticalPolicy(QSizePolicy::Fixed);
    } else if (policy.verticalPolicy() == QSizePolicy::Fixed) { // or the program has set another
        policy.setVerticalPolicy(m_openPolicy);
    }
    setSizePolicy(policy);
}
