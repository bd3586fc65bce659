// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

#include <memory>

class BVPanelFloat;
class QWidget;
class ResizeableWidgetHandle;

/// What the handles of one widget share: the time that it floats. A child of the widget.
class BVFloatOwner : public QObject
{
    Q_OBJECT

public:
    /// The one of the widget, made if there is none.
    static BVFloatOwner *of(QWidget *widget);
    ~BVFloatOwner() override;

    void attach(ResizeableWidgetHandle *handle);
    /// The handle is told nothing more; with the last one the widget returns to its place.
    void detach(ResizeableWidgetHandle *handle);

    /// Lets the widget float, and tells its handles. False where it cannot, or does no longer; the
    /// handles that have been told, and this, may be deleted then.
    bool leavePlace();
    /// Null while the widget does not float.
    BVPanelFloat *panelFloat() const;

private:
    explicit BVFloatOwner(QWidget *widget);
    QWidget *widget() const;
    void addPlaceHolder();
    void onFloatEnded();
    void tell(bool floating);

    std::unique_ptr<BVPanelFloat> m_float;
    QVector<QPointer<ResizeableWidgetHandle>> m_handles;
};
