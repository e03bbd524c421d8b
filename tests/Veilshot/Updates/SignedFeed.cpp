#include "tests/Veilshot/Updates/SignedFeed.h"

#include <array>
#include <sodium.h>

namespace Veilshot::SignedFeed {

namespace {

struct Keys {
    std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> open;
    std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secret;

    Keys() {
        const std::array<unsigned char, crypto_sign_SEEDBYTES> seed{7};
        crypto_sign_seed_keypair(open.data(), secret.data(), seed.data());
    }
};

const Keys keys;

QByteArray base64(const unsigned char* bytes, size_t count) {
    return QByteArray(reinterpret_cast<const char*>(bytes), qsizetype(count)).toBase64();
}

QByteArray escaped(const QByteArray& text) {
    return QString::fromUtf8(text).toHtmlEscaped().toUtf8();
}

} // namespace

PublicKey publicKey() {
    return *PublicKey::fromBase64(base64(keys.open.data(), keys.open.size()));
}

QByteArray signature(const Entry& entry) {
    const QByteArray statement =
        "Veilshot release\n" + entry.version + '\n' + entry.link + '\n' + entry.notes;
    std::array<unsigned char, crypto_sign_BYTES> bytes;
    crypto_sign_detached(bytes.data(), nullptr, reinterpret_cast<const unsigned char*>(statement.data()),
                         size_t(statement.size()), keys.secret.data());
    return base64(bytes.data(), bytes.size());
}

QByteArray item(const Entry& entry) {
    return item(entry, signature(entry));
}

QByteArray item(const Entry& entry, const QByteArray& signature) {
    return "<item><title>Veilshot</title><pubDate>today</pubDate><link>\n  " + escaped(entry.link) +
           "\n</link><description>\n" + escaped(entry.notes) + "\n</description><v:release version=\"" +
           entry.version + "\" signature=\"" + signature + "\"/></item>\n";
}

QByteArray feed(const QByteArray& items) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<rss version=\"2.0\" xmlns:v=\"urn:veilshot:updates\"><channel><title>Releases</title>\n" +
           items + "</channel></rss>\n";
}

} // namespace Veilshot::SignedFeed
