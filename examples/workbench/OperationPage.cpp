// SPDX-License-Identifier: MIT
#include "OperationPage.h"

#include "FieldGroup.h"
#include "OperationKinds.h"
#include "SetupFields.h"
#include "StepHeader.h"

#include <BVInfoArea.h>

namespace {

FieldGroup *createGroup(const OperationKind &kind)
{
    return new FieldGroup(OperationPage::tr("&Parameters"), kind.fields, 0);
}

} // namespace

OperationPage::OperationPage(const OperationSetup &operation, QWidget *parent)
    : StepPage(operation.name,
               SetupFields::translated(OperationKinds::kind(operation.kind).purpose),
               createGroup(OperationKinds::kind(operation.kind)), parent)
    , m_operation(operation)
    , m_states(new BVInfoArea(this))
{
    m_states->setIconType(BVInfoArea::Information);
    insertAboveGroup(m_states);
    group()->load(operation.values);
    setSkipped(operation.isSkipped);
    setLocked(operation.isLocked);
}

OperationSetup OperationPage::operation() const
{
    OperationSetup result = m_operation;
    group()->store(result.values);
    return result;
}

void OperationPage::setName(const QString &name)
{
    m_operation.name = name;
    header()->setTitle(name);
}

void OperationPage::setSkipped(bool skip)
{
    m_operation.isSkipped = skip;
    group()->setEnabled(!skip);
    showStates();
}

void OperationPage::setLocked(bool lock)
{
    m_operation.isLocked = lock;
    group()->setLocked(lock);
    showStates();
}

void OperationPage::setCycled(bool cycle)
{
    m_operation.isCycled = cycle;
}

void OperationPage::showStates()
{
    m_states->clear();
    if (m_operation.isSkipped)
        m_states->addMessage(
            tr("This operation is skipped. Check it in the navigation to have it carried out."));
    if (m_operation.isLocked)
        m_states->addMessage(
            tr("This operation is locked. The menu of its tab lets you change its values again."));
    m_states->setVisible(!m_states->messages().isEmpty());
}

QStringList OperationPage::fieldsNeedingInput() const
{
    QStringList names = group()->fieldsNeedingInput();
    for (QString &field : names)
        field = OperationSetup::fieldName(m_operation.name, field);
    return names;
}
