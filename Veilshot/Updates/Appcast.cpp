#include "Veilshot/Updates/Appcast.h"

#include <QXmlStreamReader>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// Reads one feed. The first thing that is not as it must be ends it with an error of the reader.
class Parser {
public:
    explicit Parser(const QByteArray& bytes) : m_xml(bytes) {}

    std::optional<Appcast> parse() {
        // What stands before the root: a document type could define entities.
        while (m_xml.readNext() != QXmlStreamReader::StartElement && !m_xml.hasError()) {
            if (m_xml.isDTD())
                m_xml.raiseError();
        }
        if (!is(u"rss"))
            return std::nullopt;
        bool hasChannel = false;
        while (m_xml.readNextStartElement()) {
            if (is(u"channel")) {
                hasChannel = true;
                readChannel();
            } else {
                m_xml.skipCurrentElement();
            }
        }
        while (!m_xml.atEnd()) // what stands behind the root must be well-formed too
            m_xml.readNext();
        if (m_xml.hasError() || !hasChannel)
            return std::nullopt;
        return m_appcast;
    }

private:
    bool is(QStringView name, QStringView space = {}) const {
        return m_xml.name() == name && m_xml.namespaceUri() == space;
    }

    void readChannel() {
        while (m_xml.readNextStartElement()) {
            if (is(u"item"))
                readItem();
            else
                m_xml.skipCurrentElement();
        }
    }

    void readItem() {
        QString link;
        QString notes;
        bool isRelease = false;
        QString version;
        QByteArray signature;
        while (m_xml.readNextStartElement()) {
            if (is(u"link")) {
                link = m_xml.readElementText().trimmed();
            } else if (is(u"description")) {
                notes = m_xml.readElementText().trimmed();
            } else if (is(u"release", QLatin1StringView(Appcast::releaseNamespace).toString())) {
                isRelease = true;
                version = m_xml.attributes().value(u"version"_s).toString();
                signature = m_xml.attributes().value(u"signature"_s).toLatin1();
                m_xml.skipCurrentElement();
            } else {
                m_xml.skipCurrentElement();
            }
        }
        if (isRelease && !m_xml.hasError())
            add(version, link, notes, signature);
    }

    void add(const QString& version, const QString& link, const QString& notes, const QByteArray& signature) {
        const auto parsedVersion = ReleaseVersion::parse(version);
        const auto decodedSignature =
            QByteArray::fromBase64Encoding(signature, QByteArray::AbortOnBase64DecodingErrors);
        const bool isLinkLine = !link.isEmpty() && link.size() <= Appcast::maximumLink &&
                                std::ranges::none_of(link, [](QChar character) {
                                    return character.isSpace() || !character.isPrint();
                                });
        if (!parsedVersion || !decodedSignature || signature.isEmpty() || !isLinkLine ||
            notes.size() > Appcast::maximumNotes || m_appcast.releases.size() == Appcast::maximumReleases) {
            m_xml.raiseError();
            return;
        }
        m_appcast.releases.push_back({*parsedVersion, link, notes, *decodedSignature});
    }

    QXmlStreamReader m_xml;
    Appcast m_appcast;
};

} // namespace

std::optional<Appcast> Appcast::parse(const QByteArray& bytes) {
    return Parser(bytes).parse();
}

} // namespace Veilshot
