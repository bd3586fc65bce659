// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QEvent>
#include <QString>

namespace Brimvale {

/// Asks the main window to open a simulation file.
class BVWIDGETS_EXPORT OpenSimulationEvent : public QEvent
{
public:
    static const QEvent::Type s_customEventType;

    OpenSimulationEvent(const QString &fileName, const QString &message);
    OpenSimulationEvent(const OpenSimulationEvent &) = default;
    OpenSimulationEvent &operator=(const OpenSimulationEvent &) = default;
    ~OpenSimulationEvent() override;

    const QString &getFileName() const { return m_fileName; }
    /// A text to show to the user with it.
    const QString &getMessage() const { return m_message; }

private:
    QString m_fileName;
    QString m_message;
};

} // namespace Brimvale
