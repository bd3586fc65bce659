// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "controls/BVStatusControl.h"
#include "foundation/BVReferenceValueInterface.h"

#include <QBrush>
#include <QColor>
#include <QSlider>

#include <memory>

class BVFormatter;
class BVSliderGeometry;
class BVSliderHandles;
class BVSliderLimits;
class BVSliderMarks;
class BVSliderPointer;
class BVSliderScale;
class BVSliderShapes;
class QRegion;
struct BVSliderScene;
struct BVSliderState;

/// A slider whose integer positions stand for physical values.
///
/// Inside its range the slider has an admissible range, at first without limits. What the user
/// does keeps the value in it (keys, wheel, page steps, dragging, clicks; triggerAction() and
/// setSliderPosition() count as the user's), while setValue() may leave it. The two limits can be
/// shown as triangular handles that the user drags; a limit outside the slider's range has none. A
/// click on the groove jumps to the clicked value.
///
/// The slider can be drawn as an extended slider, as a span slider, whose two limits are the input,
/// or as a slider for one design-variable value with a Gaussian curve. Markers and a best value
/// may be shown in each of them.
///
/// Tab goes through the handles that can be moved: the value, the lower limit, the upper limit.
/// Arrow keys, Page Up, Page Down, Home and End move the one that has the focus, as does the wheel,
/// a limit within the slider's range and up to the other limit. Escape brings a limit that is being
/// dragged back, and with it a value that it has pushed along, unless someone else has moved it
/// since.
///
/// A slider that is locked by its status (StandardLocked) or disabled takes no input. What happens
/// to it during a drag (it is locked, disabled or hidden, its window is blocked or left, the
/// release gets lost, the handle is no longer there) ends the drag: limits stay as they are, and
/// the value as it was last announced. The wheel turns the slider only while it has the focus, so
/// that the page scrolls on.
///
/// A Brimvale::VirtualSliderEvent moves the value by its number of single steps, ten times as far
/// with Ctrl, a tenth as far (but by one position at least) with Shift; the code of an arrow key,
/// Page Up, Page Down, Home or End in its place acts as that key. All other codes of keys without a
/// character (0x01000000 to 0x01ffffff) are ignored. So is the event where a key would be, and
/// during a drag.
///
/// Values are told in tool tips and to assistive technology as the formatter writes them, unless a
/// converter is set.
class BVWIDGETS_EXPORT BVSlider : public BVStatusControl<QSlider>, public BVReferenceValueInterface
{
    Q_OBJECT
    Q_PROPERTY(int admissibleMinimum READ admissibleMinimum WRITE setAdmissibleMinimum NOTIFY
                   admissibleRangeChanged)
    Q_PROPERTY(int admissibleMaximum READ admissibleMaximum WRITE setAdmissibleMaximum NOTIFY
                   admissibleRangeChanged)
    Q_PROPERTY(bool limitHandlesActive READ limitHandlesActive WRITE setLimitHandlesActive)
    Q_PROPERTY(bool inputEnabled READ isInputEnabled WRITE setInputEnabled)
    Q_PROPERTY(bool extended READ isExtended WRITE setExtended)
    Q_PROPERTY(bool dvValueSlider READ isDVValueSlider WRITE setIsDVValueSlider)
    Q_PROPERTY(bool spanSlider READ isSpanSlider WRITE setUseAsSpanSlider)
    Q_PROPERTY(QBrush grooveBaseBrush READ grooveBaseBrush WRITE setGrooveBaseBrush)
    Q_PROPERTY(QColor brushColor READ brushColor WRITE setBrushColor)

public:
    /// Turns a position into the text of a tool tip.
    class BVWIDGETS_EXPORT ValueToStringConverter
    {
    public:
        virtual ~ValueToStringConverter();

        virtual QString getStringTo(int position) const = 0;
        /// A copy that the caller owns.
        virtual ValueToStringConverter *clone() const = 0;
    };

    /// The position times a factor, in fixed notation.
    class BVWIDGETS_EXPORT MultiplierBasedConverter : public ValueToStringConverter
    {
    public:
        /// @p decimals is moved into [0, 300].
        MultiplierBasedConverter(double multiplier, int decimals);

        QString getStringTo(int position) const override;
        ValueToStringConverter *clone() const override;

    private:
        double m_multiplier;
        int m_decimals;
    };

    /// How values are spread over the positions.
    enum Scale : qint32 {
        Linear,
        Logarithmic, ///< equal steps stand for equal ratios
    };
    Q_ENUM(Scale)

    /// What the user can take hold of.
    enum Handle : qint32 {
        NoHandle = -1,
        ValueHandle,
        LowerLimitHandle,
        UpperLimitHandle,
    };
    Q_ENUM(Handle)

    /// A horizontal slider from 0 to 99.
    explicit BVSlider(QWidget *parent = nullptr);
    explicit BVSlider(Qt::Orientation orientation, QWidget *parent = nullptr);
    ~BVSlider() override;

    // Admissible range

    /// The limits as they were asked for, whatever the slider's range.
    int admissibleMinimum() const;
    int admissibleMaximum() const;
    /// Sets both limits, in positions, and whether the user may drag them. If the minimum is above
    /// the maximum, the one that changes gives way; if both do, the minimum. A value outside moves
    /// to the nearer limit. Unchanged limits emit nothing.
    void setAdmissibleRange(int minimum, int maximum, bool handlesActive);
    /// Sets one limit, which the other stops.
    void setAdmissibleMinimum(int minimum);
    void setAdmissibleMaximum(int maximum);
    /// Takes the limits away: the lowest and the highest int.
    void clearAdmissibleRange();
    /// Whether the user may drag the limits; off at first. Those of a span slider always move.
    bool limitHandlesActive() const { return m_limitHandlesActive; }
    void setLimitHandlesActive(bool active);

    // Input

    /// Whether the status StandardLocked is set.
    bool isLocked() const;
    void setLocked(bool locked);
    /// Whether the user may move the value, with pointer, keys or wheel; on at first. Without it a
    /// press beside the limits does nothing. The limits do not mind.
    bool isInputEnabled() const { return m_inputEnabled; }
    void setInputEnabled(bool enabled);
    /// Whether the user could move the handle now: it is there and neither locked, disabled nor,
    /// for the value, without input.
    bool isHandleActive(Handle handle) const;
    /// The handle that keys move while the slider has the focus.
    Handle focusedHandle() const;
    /// Ignored unless the handle is active.
    void setFocusedHandle(Handle handle);
    /// Moves a handle as the user would, so within its bounds; ignored unless the handle is active.
    void moveHandle(Handle handle, int position);
    /// Where a handle stands, in positions; 0 for NoHandle. That of a span slider's limit is in the
    /// slider's range.
    int handlePosition(Handle handle) const;
    /// The lowest and the highest position that moveHandle() takes the handle to.
    int handleMinimum(Handle handle) const;
    int handleMaximum(Handle handle) const;

    // Pixels, in the coordinates of the widget along the slider

    /// The middle of the handle at the position, which is moved into the slider's range. As the
    /// handle's way and the track have other ends, a click there may jump to a neighbour.
    int valueToPixelPos(int value) const;
    /// The position that a click jumps to. The track begins 8 pixels behind the left end of the
    /// groove and ends 11 before its right end (6 and 6 for an extended slider), 8 and 8 for a
    /// vertical slider. Right-to-left and inverted sliders mirror it. Beyond lie minimum and
    /// maximum; of a groove without a track, each half stands for its end.
    int pixelPosToValue(int pixel) const;
    int pixelPosToValue(const QPoint &position) const;
    /// The part of the widget that shows a handle; empty if it is not there.
    QRect handleRect(Handle handle) const;

    // Values

    /// Sets the values, in the formatter's value unit, that minimum() and maximum() stand for. The
    /// first may be the larger. False, with nothing changed, if they are equal or not finite, or
    /// not both above zero for a logarithmic scale. Without it each position stands for itself.
    bool setUserRange(double atMinimum, double atMaximum, Scale scale = Linear);
    /// Lets each position stand for itself again.
    void clearUserRange();
    Scale scale() const;
    /// In the formatter's value unit. Positions outside the slider's range are moved into it if a
    /// user range is set.
    double positionToValue(int position) const;
    /// The nearest position in the slider's range; the minimum for NaN.
    int valueToPosition(double value) const;
    /// In the formatter's display unit.
    double intPositionToUserRelevantValue(int position) const;
    /// The text of a position: the converter's, or the formatter's with its unit.
    QString positionToText(int position) const;
    /// Writes the values; owned by the slider. It starts without unit and drops trailing zeros.
    BVFormatter *getFormatter() const { return m_formatter; }
    /// Takes a clone of @p converter for the texts of positions.
    void setCustomToolTipConverter(const ValueToStringConverter &converter);
    /// Back to the formatter.
    void clearCustomToolTipConverter();

    // Modes

    /// Whether groove and limit handles are larger and a tool tip tells the value while dragging.
    bool isExtended() const { return m_extended; }
    void setExtended(bool extended);
    /// Whether the slider shows one design-variable value: a thin marker instead of the handle,
    /// under a Gaussian curve.
    bool isDVValueSlider() const { return m_dvValueSlider; }
    void setIsDVValueSlider(bool on);
    /// Whether the two limits are the input and there is no handle for the value. A limit beyond
    /// the slider's range then has its handle at the range's end, and keeps its position until the
    /// user moves it.
    bool isSpanSlider() const { return m_spanSlider; }
    void setUseAsSpanSlider(bool on);

    // Painting

    /// Fills the groove between two positions, in either order. Later markers cover earlier ones. A
    /// brush without a style is ignored.
    void mark(int from, int to, const QBrush &brush);
    void clearMarkers();
    /// The curve of the design-variable slider, in positions. Values that are not finite and
    /// deviations not above zero are ignored. At first the curve lies in the middle of the
    /// admissible part of the range, with a sixth of its width as deviation.
    void setDistribution(double mean, double deviation);
    void clearDistribution();
    /// Shows a mark at the position, while it lies in the slider's range.
    void setBestValue(int position);
    void clearBestValue();

    /// Fills the groove; no brush, as at first, for a colour from the palette.
    QBrush grooveBaseBrush() const;
    void setGrooveBaseBrush(const QBrush &brush);
    /// Tints the admissible range, the limit handles and the curve; invalid, as at first, for the
    /// colour of the status.
    QColor brushColor() const;
    void setBrushColor(const QColor &color);

    static QBrush defaultMarkerBrush();
    static QBrush almostBlackBrush();
    static QBrush blackBrush();
    static QBrush blackMarkerBrush();
    static QBrush blackerBrush();
    static QBrush blueBrush();
    static QBrush completelyBlackBrush();
    static QBrush grayDashedMarkerBrush();
    static QBrush greenBrush();
    static QBrush redBrush();
    static QBrush whiteBrush();
    static QBrush whiteMarkerBrush();
    /// The brush's colour from a lighter to a darker tone, from the top of the region to its
    /// bottom; the brush itself for an empty region.
    static QBrush gradientBrush(const QBrush &brush, const QRegion &region);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// A number is a value in the value unit.
    QString referenceValueText(const QVariant &reference) const override;
    QString toolTipText() const override;

Q_SIGNALS:
    /// A limit has changed; also once when the user lets go of one, or has to.
    void admissibleRangeChanged(int minimum, int maximum);
    /// The user has clicked on the groove; connected to setValue().
    void requestValueChange(int value);
    /// The user has chosen an entry of the standard context menu, see BVWidgetInterface.
    void standardActionTriggered(int action);

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void sliderChange(SliderChange change) override;

private:
    friend BVSliderPointer;

    bool takesInput() const;
    bool hasLimitHandles() const { return m_limitHandlesActive || m_spanSlider; }
    bool isLimitShown(Handle handle) const;
    int boundToAdmissible(qint64 position) const;
    bool storeLimits(int minimum, int maximum);
    void announceLimits();
    void announceValues();

    BVSliderShapes &shapes() const;
    const BVSliderGeometry &geometry() const;
    QSize sizeAcross(int least) const;
    void updateLook();
    void changeLook();
    void changeSize();
    void updateCursor();

    void moveLimit(Handle handle, int position);
    bool handleVirtualSlider(QEvent *event);
    bool needsOwnPainting() const;
    void fillScene(BVSliderScene &scene) const;
    BVSliderState currentState() const;

    BVFormatter *m_formatter; // child of this
    bool m_limitHandlesActive = false;
    bool m_inputEnabled = true;
    bool m_extended = false;
    bool m_dvValueSlider = false;
    bool m_spanSlider = false;
    std::unique_ptr<ValueToStringConverter> m_toolTipConverter;

    // Never null
    std::unique_ptr<BVSliderLimits> m_limits; // as they were asked for
    std::unique_ptr<BVSliderScale> m_scale;
    std::unique_ptr<BVSliderHandles> m_handles;
    std::unique_ptr<BVSliderPointer> m_pointer;
    std::unique_ptr<BVSliderMarks> m_marks;

    mutable std::unique_ptr<BVSliderShapes> m_shapes; // null when out of date
};
