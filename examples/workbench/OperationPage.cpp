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
    , m_skipped(new BVInfoArea(this))
{
    m_skipped->setIconType(BVInfoArea::Information);
    m_skipped->setMessage(
        tr("This operation is skipped. Check it in the navigation to have it carried out."));
    insertAboveGroup(m_skipped);
    group()->load(operation.values);
    setSkipped(operation.isSkipped);
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
    m_skipped->setVisible(skip);
    group()->setEnabled(!skip);
}

QStringList OperationPage::fieldsNeedingInput() const
{
    QStringList names = group()->fieldsNeedingInput();
    for (QString &field : names)
        field = OperationSetup::fieldName(m_operation.name, field);
    return names;
}
