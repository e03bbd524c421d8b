#include "Veilshot/Updates/PublicKey.h"

#include <sodium.h>

namespace Veilshot {

namespace {

const unsigned char* bytes(const QByteArray& array) {
    return reinterpret_cast<const unsigned char*>(array.constData());
}

} // namespace

std::optional<PublicKey> PublicKey::fromBase64(const QByteArray& text) {
    const auto decoded = QByteArray::fromBase64Encoding(text, QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded || (*decoded).size() != crypto_sign_PUBLICKEYBYTES)
        return std::nullopt;
    return PublicKey(*decoded);
}

bool PublicKey::verifies(const QByteArray& signature, const QByteArray& statement) const {
    // Initialising again does nothing.
    return sodium_init() >= 0 && signature.size() == crypto_sign_BYTES &&
           crypto_sign_verify_detached(bytes(signature), bytes(statement),
                                       static_cast<unsigned long long>(statement.size()),
                                       bytes(m_bytes)) == 0;
}

} // namespace Veilshot
