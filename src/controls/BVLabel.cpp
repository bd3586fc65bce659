// SPDX-License-Identifier: MIT
#include "controls/BVLabel.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTextDocument>
#include <QTextDocumentFragment>

BVLabel::BVLabel(QWidget *parent)
    : BVStatusControl<QLabel>(parent)
{
}

BVLabel::BVLabel(const QString &text, QWidget *parent)
    : BVStatusControl<QLabel>(text, parent)
{
}

QMenu *BVLabel::createContextMenu()
{
    if (!(textInteractionFlags() & (Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard)))
        return nullptr;
    const QString selected = selectedText();
    auto *menu = new BVMenu(this);
    QAction *copy = menu->addAction(
        tr("&Copy"), this, [selected] { QGuiApplication::clipboard()->setText(selected); });
    copy->setEnabled(!selected.isEmpty());
    menu->addAction(tr("Select All"), this, [this] {
        const bool isRich = textFormat() == Qt::RichText ||
                            (textFormat() == Qt::AutoText && Qt::mightBeRichText(text()));
        const QString plain =
            isRich ? QTextDocumentFragment::fromHtml(text()).toPlainText() : text();
        setSelection(0, plain.size());
    });
    return menu;
}
