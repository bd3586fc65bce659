// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QVector>

#include <memory>

class MainWidget;
class QWidget;

/// The time that a panel spends out of its layout: the main widget that it floats in, and the place
/// holder that keeps its place.
///
/// The panel is shown and enabled as the place is, and has the font and palette that the forms
/// around the place give it; its edges follow those of the place. When the place is deleted, so is
/// the panel; when the panel is deleted, the place and the main widget go. The time also ends when
/// the place comes into another window, as that of a dock does that is undocked, and when the
/// program gives the panel another parent.
class BVPanelFloat : public QObject
{
    Q_OBJECT

public:
    static constexpr int s_duration = 80; // ms that a change of the size takes

    /// Takes the panel out of its layout. Null, with nothing changed, where its place cannot be
    /// kept, in a window that is a splitter and for what floats already.
    static std::unique_ptr<BVPanelFloat> leave(QWidget *panel);
    /// Puts the panel back if the time has not ended.
    ~BVPanelFloat() override;

    /// Moves the panel to its place, into which it comes back then.
    void returnToPlace();
    /// Puts the panel back in its place.
    void comeBack();

    /// To be called at the latest when the panel is being deleted; nothing brings it back then.
    void forgetPanel();

    /// Null once the time has ended.
    MainWidget *mainWidget() const;
    /// What stands in the layout; likewise.
    QWidget *place() const;
    /// The place in the coordinates of the window.
    QRect placeRect() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The panel has left the main widget; this may be deleted now. The main window is told after
    /// that.
    void sigEnded();

private:
    BVPanelFloat(QWidget *panel, QWidget *window);
    void watch(QObject *object);
    void watchAncestors();
    void unwatchAll();
    void onPlaceDestroyed();
    void onAncestorMoved();
    void checkHost();
    void onPanelMoved();
    void onPlaceMoved();
    void putBack();
    void end();
    void syncWithPlace();
    void syncLook();

    QWidget *m_panel;         // null once it is being deleted
    QWidget *m_place;         // null once it is being deleted
    MainWidget *m_mainWidget; // likewise
    QRect m_placeRect;        // when it was last in sight
    QVector<QPointer<QObject>> m_watched;
};
