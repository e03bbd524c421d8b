#pragma once

#include "VeilshotCore/Models/NormalizedRect.h"
#include "VeilshotCore/Models/SensitiveKind.h"

#include <QUuid>
#include <vector>

namespace Veilshot {

/// One area of an image that is to be hidden. Its fields never change once it is built; it lives only in
/// memory, for one image.
class SensitiveRegion {
public:
    /// Every creator passes a newly generated `id`.
    SensitiveRegion(QUuid id, const NormalizedRect& normalizedRect, SensitiveKind kind)
        : m_id(id), m_normalizedRect(normalizedRect), m_kind(kind) {}

    QUuid id() const { return m_id; }
    const NormalizedRect& normalizedRect() const { return m_normalizedRect; }
    SensitiveKind kind() const { return m_kind; }

    /// The ninth of the image in which the centre lies: "Top left", "Middle", "Bottom right".
    QString locationLabel() const;

    friend bool operator==(const SensitiveRegion&, const SensitiveRegion&) = default;

private:
    QUuid m_id;
    NormalizedRect m_normalizedRect;
    SensitiveKind m_kind;
};

using SensitiveRegions = std::vector<SensitiveRegion>;

} // namespace Veilshot
