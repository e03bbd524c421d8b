#pragma once

#include <QByteArray>
#include <optional>

namespace Veilshot {

/// An Ed25519 key that tells whether a text was signed by its owner.
class PublicKey {
public:
    /// Nothing unless the text is the base64 form of 32 bytes.
    static std::optional<PublicKey> fromBase64(const QByteArray& text);

    /// False too for a signature of the wrong length.
    bool verifies(const QByteArray& signature, const QByteArray& statement) const;

private:
    explicit PublicKey(const QByteArray& bytes) : m_bytes(bytes) {}

    QByteArray m_bytes;
};

} // namespace Veilshot
