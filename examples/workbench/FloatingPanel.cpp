// SPDX-License-Identifier: MIT
#include "FloatingPanel.h"

#include <BVButton.h>
#include <BVLabel.h>
#include <SvgIcon.h>

#include <QFrame>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {

constexpr int s_margin = 6;    // px, beside the title
constexpr int s_iconSize = 14; // px

} // namespace

FloatingPanel::FloatingPanel(const QString &title, QWidget *content, QWidget *parent)
    : BVResizableWidget(parent)
{
    setWindowTitle(title);
    setAutoFillBackground(true);
    auto *frame = new QFrame;
    frame->setFrameShape(QFrame::StyledPanel);
    auto *layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(createHeader());
    layout->addWidget(content, 1);
    setContainerWidget(frame);
    connect(this, &BVResizableWidget::sigFloatingChanged, this, &FloatingPanel::showState);
    showState();
}

QWidget *FloatingPanel::createHeader()
{
    auto *header = new QWidget;
    auto *title = new BVLabel(windowTitle(), header);
    m_button = new BVButton(header);
    m_button->setProperty("flatIcon", true);
    m_button->setIconSize(QSize(s_iconSize, s_iconSize));
    connect(m_button, &QToolButton::clicked, this, &FloatingPanel::toggle);
    auto *layout = new QHBoxLayout(header);
    layout->setContentsMargins(s_margin, 1, 1, 1);
    layout->addWidget(title, 1);
    layout->addWidget(m_button);
    return header;
}

void FloatingPanel::toggle()
{
    if (isFloating())
        closeEnlarged();
    else
        onToggleEnlarge();
}

void FloatingPanel::showState()
{
    const QString text = isFloating() ? tr("Back to its place") : tr("Enlarge");
    m_button->setIcon(createSvgIcon(isFloating() ? QStringLiteral(":/Icons/close.svg")
                                                 : QStringLiteral(":/Icons/chevron-up.svg")));
    m_button->setToolTip(text);
    m_button->setAccessibleName(text);
}
