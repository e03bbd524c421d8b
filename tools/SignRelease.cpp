#include "Veilshot/Updates/Appcast.h"
#include "Veilshot/Updates/PublicKey.h"

#include <CLI/CLI.hpp>
#include <QFile>
#include <QTextStream>
#include <QXmlStreamWriter>
#include <sodium.h>

using namespace Qt::StringLiterals;
using namespace Veilshot;

namespace {

// A key file holds the seed of the key pair, 32 bytes, in base64.

struct KeyPair {
    QByteArray publicKey{crypto_sign_PUBLICKEYBYTES, '\0'};
    QByteArray secretKey{crypto_sign_SECRETKEYBYTES, '\0'};
};

unsigned char* bytes(QByteArray& array) {
    return reinterpret_cast<unsigned char*>(array.data());
}

int fail(const QString& message) {
    QTextStream(stderr) << message << '\n';
    return 1;
}

KeyPair keyPair(QByteArray& seed) {
    KeyPair pair;
    crypto_sign_seed_keypair(bytes(pair.publicKey), bytes(pair.secretKey), bytes(seed));
    return pair;
}

std::optional<QByteArray> readFile(const std::string& path) {
    QFile file(QFile::decodeName(path.c_str()));
    return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

int makeKey(const std::string& keyFile) {
    QByteArray seed(crypto_sign_SEEDBYTES, '\0');
    randombytes_buf(seed.data(), size_t(seed.size()));
    QFile file(QFile::decodeName(keyFile.c_str()));
    // A key that exists stays; what it signed could never be verified again.
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner) ||
        file.write(seed.toBase64() + '\n') < 0 || !file.flush())
        return fail(u"%1: %2"_s.arg(file.fileName(), file.errorString()));
    QTextStream(stdout) << keyPair(seed).publicKey.toBase64() << '\n';
    return 0;
}

QByteArray item(const Release& release) {
    QByteArray text;
    QXmlStreamWriter xml(&text);
    xml.setAutoFormatting(true);
    xml.writeStartElement(u"item"_s);
    xml.writeNamespace(QLatin1StringView(Appcast::releaseNamespace).toString(), u"veilshot"_s);
    xml.writeTextElement(u"link"_s, release.link);
    xml.writeTextElement(u"description"_s, release.notes);
    xml.writeEmptyElement(u"veilshot:release"_s);
    xml.writeAttribute(u"version"_s, release.version.text());
    xml.writeAttribute(u"signature"_s, QString::fromLatin1(release.signature.toBase64()));
    xml.writeEndElement();
    return text.trimmed() + '\n';
}

int sign(const std::string& keyFile, const std::string& version, const std::string& link,
         const std::string& notesFile) {
    QByteArray seed = QByteArray::fromBase64(readFile(keyFile).value_or(QByteArray()).trimmed());
    if (seed.size() != crypto_sign_SEEDBYTES)
        return fail(u"This is no key file."_s);
    const auto parsedVersion = ReleaseVersion::parse(QString::fromStdString(version));
    if (!parsedVersion)
        return fail(u"This is no version."_s);
    const auto notesText = readFile(notesFile);
    if (!notesText)
        return fail(u"The notes cannot be read."_s);
    QString notes = QString::fromUtf8(*notesText);
    notes.replace(u"\r\n"_s, u"\n"_s);
    Release release{*parsedVersion, QString::fromStdString(link), notes.trimmed(), {}};
    if (!release.page())
        return fail(u"The link must be an https address."_s);

    const KeyPair pair = keyPair(seed);
    const QByteArray statement = release.statement();
    release.signature = QByteArray(crypto_sign_BYTES, '\0');
    crypto_sign_detached(bytes(release.signature), nullptr,
                         reinterpret_cast<const unsigned char*>(statement.constData()),
                         static_cast<unsigned long long>(statement.size()),
                         reinterpret_cast<const unsigned char*>(pair.secretKey.constData()));

    // What it prints must be what the program reads.
    const QByteArray text = item(release);
    const auto read = Appcast::parse("<rss><channel>" + text + "</channel></rss>");
    if (!read || read->releases.size() != 1 ||
        !PublicKey::fromBase64(pair.publicKey.toBase64())
             ->verifies(read->releases[0].signature, read->releases[0].statement()))
        return fail(u"The link or the notes are too long, or hold characters that a feed cannot."_s);
    QTextStream(stdout) << text;
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app("Makes the key of an update feed, and signs the releases in it.", "veilshot_sign_release");
    app.require_subcommand(1);
    std::string keyFile;
    std::string version;
    std::string link;
    std::string notesFile;

    CLI::App* newKey = app.add_subcommand("new-key", "Write a new secret key and print its public key");
    newKey->add_option("KEY", keyFile, "File to make; keep it to yourself")->required();
    CLI::App* signing = app.add_subcommand("sign", "Print the feed's item for a release");
    signing->add_option("KEY", keyFile, "File with the secret key")->required();
    signing->add_option("VERSION", version, "As in 1.5.0")->required();
    signing->add_option("LINK", link, "Page to get it from, https")->required();
    signing->add_option("NOTES", notesFile, "File that says what is new, plain text")->required();
    CLI11_PARSE(app, argc, argv);

    if (sodium_init() < 0)
        return fail(u"Cannot make random numbers."_s);
    return newKey->parsed() ? makeKey(keyFile) : sign(keyFile, version, link, notesFile);
}
