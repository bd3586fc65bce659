// SPDX-License-Identifier: MIT
#include "controls/BVDisclosureArea_p.h"

#include <QEvent>
#include <QVBoxLayout>

#include <cmath>

BVDisclosureArea::BVDisclosureArea(QWidget *parent)
    : QWidget(parent)
    , m_holder(new QWidget(this))
    , m_layout(new QVBoxLayout(m_holder))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_animation.setStartValue(0.0);
    m_animation.setEndValue(1.0);
    m_animation.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&m_animation, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        setOpenness(m_from + (m_to - m_from) * value.toDouble());
    });
}

QWidget *BVDisclosureArea::content() const
{
    QLayoutItem *item = m_layout->itemAt(0);
    return item ? item->widget() : nullptr;
}

void BVDisclosureArea::setContent(QWidget *content)
{
    if (QWidget *old = this->content()) {
        old->setParent(nullptr); // what follows its end from outside no longer meets it in here
        delete old;
    }
    m_layout->addWidget(content);
    updatePolicy();
    updateGeometry();
    place();
}

void BVDisclosureArea::setOpen(bool open, int duration)
{
    m_animation.stop();
    m_from = m_openness;
    m_to = open ? 1.0 : 0.0;
    const int rest = qRound(duration * std::abs(m_to - m_from));
    if (rest <= 0 || !isVisible()) {
        setOpenness(m_to);
        return;
    }
    m_animation.setDuration(rest);
    m_animation.start();
}

QSize BVDisclosureArea::sizeHint() const
{
    const QSize full = m_layout->totalSizeHint();
    return {full.width(), shown(full.height())};
}

QSize BVDisclosureArea::minimumSizeHint() const
{
    const QSize full = m_layout->totalMinimumSize();
    return {full.width(), shown(full.height())};
}

bool BVDisclosureArea::hasHeightForWidth() const
{
    return m_layout->hasHeightForWidth();
}

int BVDisclosureArea::heightForWidth(int width) const
{
    return shown(m_layout->totalHeightForWidth(width));
}

bool BVDisclosureArea::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest) {
        updatePolicy();
        updateGeometry();
        place();
    }
    return QWidget::event(event);
}

void BVDisclosureArea::resizeEvent(QResizeEvent * /*event*/)
{
    place();
}

int BVDisclosureArea::shown(int height) const
{
    return qRound(height * m_openness);
}

int BVDisclosureArea::fullHeight() const
{
    return m_layout->hasHeightForWidth() ? m_layout->totalHeightForWidth(width())
                                         : m_layout->totalSizeHint().height();
}

void BVDisclosureArea::setOpenness(double openness)
{
    m_openness = openness;
    m_holder->setVisible(openness > 0.0 || m_to > 0.0);
    updateGeometry();
    place();
    if (openness == m_to)
        Q_EMIT settled();
}

void BVDisclosureArea::updatePolicy()
{
    const bool grows = m_layout->expandingDirections() & Qt::Vertical;
    const auto vertical = grows ? QSizePolicy::Expanding : QSizePolicy::Preferred;
    if (vertical != sizePolicy().verticalPolicy())
        setSizePolicy(QSizePolicy::Preferred, vertical);
}

void BVDisclosureArea::place()
{
    const int full = m_openness < 1.0 ? fullHeight() : 0;
    m_holder->setGeometry(0, 0, width(), qMax(height(), full));
}
