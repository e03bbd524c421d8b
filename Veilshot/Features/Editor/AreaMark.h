#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace Veilshot {

/// Marks an area of the image as it is shown. Painted, so that curves are smooth without multisampling and
/// end at the image's round corners with every backend. It lays itself out in its parent, which has the
/// image's frame.
class AreaMark : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Style style MEMBER m_style NOTIFY styleChanged)
    /// In view coordinates, see PreviewGeometry.
    Q_PROPERTY(QRectF area MEMBER m_area NOTIFY areaChanged)
    Q_PROPERTY(QSizeF frameSize MEMBER m_frameSize NOTIFY frameSizeChanged)
    Q_PROPERTY(double frameRadius MEMBER m_frameRadius NOTIFY frameRadiusChanged)
    Q_PROPERTY(QColor fill MEMBER m_fill NOTIFY fillChanged)
    Q_PROPERTY(QColor line MEMBER m_line NOTIFY lineChanged)

public:
    /// A frame a little around the area, or dashes along its edge.
    enum class Style { Highlight, Dashed };
    Q_ENUM(Style)

    explicit AreaMark(QQuickItem* parent = nullptr);
    void paint(QPainter* painter) override;

Q_SIGNALS:
    void styleChanged();
    void areaChanged();
    void frameSizeChanged();
    void frameRadiusChanged();
    void fillChanged();
    void lineChanged();

private:
    void place();

    Style m_style = Style::Highlight;
    QRectF m_area;
    QSizeF m_frameSize;
    double m_frameRadius = 0;
    QColor m_fill = Qt::transparent;
    QColor m_line;
};

} // namespace Veilshot
