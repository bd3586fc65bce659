// SPDX-License-Identifier: MIT
#include "itemviews/BVDelegateManager.h"

#include "itemviews/BVItemDelegate.h"

#include <QAbstractItemView>

BVDelegateManager::BVDelegateManager(QObject *parent)
    : QAbstractItemDelegate(parent)
{
}

BVDelegateManager::~BVDelegateManager() = default;

// The delegates

template <typename Key>
void BVDelegateManager::set(QHash<Key, Delegate> &delegates, const Key &key,
                            QAbstractItemDelegate *delegate)
{
    if (qobject_cast<BVDelegateManager *>(delegate))
        return;
    if (delegate)
        delegates.insert(key, delegate);
    else
        delegates.remove(key);
    forwardSignals(delegate);
}

void BVDelegateManager::setDefaultDelegate(QAbstractItemDelegate *delegate)
{
    if (qobject_cast<BVDelegateManager *>(delegate))
        return;
    m_default = delegate;
    forwardSignals(delegate);
}

void BVDelegateManager::setDelegate(const QModelIndex &index, QAbstractItemDelegate *delegate)
{
    if (index.isValid())
        set(m_byIndex, QPersistentModelIndex(index), delegate);
}

void BVDelegateManager::setDelegateForRow(int row, QAbstractItemDelegate *delegate)
{
    set(m_byRow, row, delegate);
}

void BVDelegateManager::setDelegateForColumn(int column, QAbstractItemDelegate *delegate)
{
    set(m_byColumn, column, delegate);
}

void BVDelegateManager::forwardSignals(QAbstractItemDelegate *delegate)
{
    if (delegate) {
        connect(delegate, &QAbstractItemDelegate::commitData, this,
                &QAbstractItemDelegate::commitData, Qt::UniqueConnection);
        connect(delegate, &QAbstractItemDelegate::closeEditor, this,
                &QAbstractItemDelegate::closeEditor, Qt::UniqueConnection);
        connect(delegate, &QAbstractItemDelegate::sizeHintChanged, this,
                &QAbstractItemDelegate::sizeHintChanged, Qt::UniqueConnection);
    }
    Q_EMIT sizeHintChanged(QModelIndex());
}

QAbstractItemDelegate *BVDelegateManager::delegate(const QModelIndex &index) const
{
    if (!m_byIndex.isEmpty()) {
        if (QAbstractItemDelegate *found = m_byIndex.value(index))
            return found;
    }
    if (QAbstractItemDelegate *found = m_byRow.value(index.row()))
        return found;
    if (QAbstractItemDelegate *found = m_byColumn.value(index.column()))
        return found;
    return m_default;
}

BVItemDelegate *BVDelegateManager::itemDelegateOf(const QAbstractItemView *view,
                                                  const QModelIndex &index)
{
    if (!view || !index.isValid())
        return nullptr;
    QAbstractItemDelegate *delegate = view->itemDelegate(index);
    if (const auto *manager = qobject_cast<BVDelegateManager *>(delegate))
        delegate = manager->delegate(index);
    return qobject_cast<BVItemDelegate *>(delegate);
}

// Forwarding

void BVDelegateManager::paint(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    if (const QAbstractItemDelegate *serving = delegate(index))
        serving->paint(painter, option, index);
}

QSize BVDelegateManager::sizeHint(const QStyleOptionViewItem &option,
                                  const QModelIndex &index) const
{
    const QAbstractItemDelegate *serving = delegate(index);
    return serving ? serving->sizeHint(option, index) : QSize();
}

QWidget *BVDelegateManager::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                         const QModelIndex &index) const
{
    QAbstractItemDelegate *serving = delegate(index);
    QWidget *editor = serving ? serving->createEditor(parent, option, index) : nullptr;
    if (editor) {
        m_byEditor.insert(editor, serving);
        connect(editor, &QObject::destroyed, this,
                [this](QObject *destroyed) { m_byEditor.remove(destroyed); });
    }
    return editor;
}

/// The delegate that has made the editor; the cell may be served by another one by now.
QAbstractItemDelegate *BVDelegateManager::editorDelegate(QWidget *editor,
                                                         const QModelIndex &index) const
{
    QAbstractItemDelegate *maker = m_byEditor.value(editor);
    return maker ? maker : delegate(index);
}

void BVDelegateManager::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    if (const QAbstractItemDelegate *maker = editorDelegate(editor, index))
        maker->destroyEditor(editor, index);
    else
        QAbstractItemDelegate::destroyEditor(editor, index);
}

void BVDelegateManager::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (const QAbstractItemDelegate *maker = editorDelegate(editor, index))
        maker->setEditorData(editor, index);
}

void BVDelegateManager::setModelData(QWidget *editor, QAbstractItemModel *model,
                                     const QModelIndex &index) const
{
    if (const QAbstractItemDelegate *maker = editorDelegate(editor, index))
        maker->setModelData(editor, model, index);
}

void BVDelegateManager::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                             const QModelIndex &index) const
{
    if (const QAbstractItemDelegate *maker = editorDelegate(editor, index))
        maker->updateEditorGeometry(editor, option, index);
}

bool BVDelegateManager::editorEvent(QEvent *event, QAbstractItemModel *model,
                                    const QStyleOptionViewItem &option, const QModelIndex &index)
{
    QAbstractItemDelegate *serving = delegate(index);
    return serving && serving->editorEvent(event, model, option, index);
}

bool BVDelegateManager::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                  const QStyleOptionViewItem &option, const QModelIndex &index)
{
    QAbstractItemDelegate *serving = delegate(index);
    return serving && serving->helpEvent(event, view, option, index);
}

/// Empty: what the delegates paint may depend on any role.
QVector<int> BVDelegateManager::paintingRoles() const
{
    return {};
}

/// The view has its delegate watch the editors.
bool BVDelegateManager::eventFilter(QObject *watched, QEvent *event)
{
    QObject *maker = m_byEditor.value(watched);
    return maker && maker->eventFilter(watched, event);
}
