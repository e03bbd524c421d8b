#pragma once

#include <QFuture>
#include <QImage>
#include <QMimeData>

namespace Veilshot {

/// A bitmap on offer to other programs: as a PNG file, which a worker makes from the start, so that it is
/// there or nearly so when somebody asks; and as an image object.
class OfferedImage : public QMimeData {
    Q_OBJECT

public:
    explicit OfferedImage(const QImage& bitmap);
    /// Nobody will ask any more: an encoding that has not begun never does.
    ~OfferedImage() override;

    /// The PNG file first, because programs take the first type they know.
    QStringList formats() const override;

protected:
    QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

private:
    QImage m_bitmap;
    QFuture<QByteArray> m_png;
};

} // namespace Veilshot
