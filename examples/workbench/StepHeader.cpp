// SPDX-License-Identifier: MIT
#include "StepHeader.h"

#include <BVLabel.h>

#include <QVBoxLayout>

namespace {

constexpr int s_margin = 8;  // px
constexpr int s_padding = 6; // px, above and below the texts
constexpr int s_spacing = 2; // px

} // namespace

StepHeader::StepHeader(QWidget *parent)
    : QFrame(parent)
    , m_title(new BVLabel(this))
    , m_hint(new BVLabel(this))
{
    setObjectName(QStringLiteral("bv_step_header"));
    m_title->setProperty("header", true);
    m_hint->setProperty("hint", true);
    for (BVLabel *label : {m_title, m_hint}) // names come from the user
        label->setTextFormat(Qt::PlainText);
    m_hint->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(s_margin, s_padding, s_margin, s_padding);
    layout->setSpacing(s_spacing);
    layout->addWidget(m_title);
    layout->addWidget(m_hint);
}

QString StepHeader::title() const
{
    return m_title->text();
}

void StepHeader::setTitle(const QString &title)
{
    m_title->setText(title);
}

void StepHeader::setHint(const QString &hint)
{
    m_hint->setText(hint);
    m_hint->setVisible(!hint.isEmpty());
}
