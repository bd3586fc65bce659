// SPDX-License-Identifier: MIT
#pragma once

#include "OperationSetup.h"
#include "StepPage.h"

#include <QStringList>

class BVInfoArea;

/// The page of one operation. While that is skipped, the page says so and its fields are disabled
/// and need no input.
class OperationPage : public StepPage
{
    Q_OBJECT

public:
    /// The values are the reference.
    explicit OperationPage(const OperationSetup &operation, QWidget *parent = nullptr);

    /// With the values that have been taken over.
    OperationSetup operation() const;
    void setName(const QString &name);
    void setSkipped(bool skip);
    /// The names of the fields that need input, behind that of the operation.
    QStringList fieldsNeedingInput() const;

private:
    OperationSetup m_operation; // with the values as they were loaded
    BVInfoArea *m_skipped;
};
