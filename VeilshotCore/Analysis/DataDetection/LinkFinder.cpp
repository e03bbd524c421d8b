#include "VeilshotCore/Analysis/DataDetection/LinkFinder.h"

#include "VeilshotCore/Analysis/RegularExpression.h"

#include <QSet>
#include <QString>
#include <QUrl>
#include <algorithm>
#include <libpsl.h>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

struct Expressions {
    RegularExpression email{uR"((?<![\p{L}\p{N}._%+'’-])[\p{L}\p{N}][\p{L}\p{N}._%+'’-]*)"
                            uR"(@(?:[\p{L}\p{N}](?:[\p{L}\p{N}-]*[\p{L}\p{N}])?\.)+)"
                            uR"((?:xn--[a-z0-9-]+|\p{L}{2,})(?![\p{L}\p{N}@]))"};
    RegularExpression explicitAddress{
        uR"((?<![\p{L}\p{N}])(?:([a-z][a-z0-9+.-]{1,20}://)|www\.)[^\s<>"“”«»|]+)"};
    /// Groups: the host, the path. A call or a member ("foo.bar(", "foo.bar_baz") is not a domain.
    RegularExpression bareDomain{
        uR"((?<![\p{L}\p{N}@._/\\:-]))"
        uR"(((?:[\p{L}\p{N}](?:[\p{L}\p{N}-]{0,61}[\p{L}\p{N}])?\.)+(?:xn--[a-z0-9-]+|\p{L}{2,24})))"
        uR"((?::\d{2,5})?(/[^\s<>"“”«»|]*)?(?![\p{L}\p{N}@_(\\]|\.[\p{L}\p{N}]))"};

    static const Expressions& shared() {
        static const Expressions expressions;
        return expressions;
    }
};

/// Whether names are registered directly under this label ("com", "dk", but neither "html" nor "local").
bool isTopLevelDomain(const QString& label) {
    // The newer of the list of the system and the one inside the library; read once, kept for good.
    static const psl_ctx_t* const suffixes = [] {
        const psl_ctx_t* latest = psl_latest(nullptr);
        return latest ? latest : psl_builtin();
    }();
    if (label.compare(u"example", Qt::CaseInsensitive) == 0)
        return true; // kept free for the addresses of documentation
    const QByteArray ascii = QUrl::toAce(label.toLower());
    return suffixes && !ascii.isEmpty() &&
           psl_is_public_suffix2(suffixes, ascii.constData(), PSL_TYPE_ICANN | PSL_TYPE_NO_STAR_RULE);
}

/// Top-level domains that end file names, members of objects and abbreviations far more often than a
/// domain of two labels: "README.md", "Main.java", "self.top", "lejl.nr".
bool isFileLike(const QString& topLevelDomain) {
    static const QSet<QString> endings{
        u"ai"_s,     u"app"_s,    u"as"_s,     u"bar"_s,   u"bz"_s,      u"cab"_s,  u"call"_s, u"cc"_s,
        u"click"_s,  u"data"_s,   u"date"_s,   u"email"_s, u"example"_s, u"fail"_s, u"gz"_s,   u"hm"_s,
        u"id"_s,     u"java"_s,   u"la"_s,     u"link"_s,  u"map"_s,     u"md"_s,   u"mk"_s,   u"ml"_s,
        u"mov"_s,    u"name"_s,   u"next"_s,   u"now"_s,   u"nr"_s,      u"open"_s, u"page"_s, u"pl"_s,
        u"pm"_s,     u"prof"_s,   u"ps"_s,     u"pub"_s,   u"py"_s,      u"read"_s, u"rs"_s,   u"run"_s,
        u"save"_s,   u"search"_s, u"select"_s, u"sh"_s,    u"show"_s,    u"so"_s,   u"st"_s,   u"style"_s,
        u"target"_s, u"top"_s,    u"ts"_s,     u"vi"_s,    u"zip"_s};
    return endings.contains(topLevelDomain.toLower());
}

/// "Reg.no", "Ref.no"
bool isNumberLabel(QStringView name, const QString& topLevelDomain) {
    static const QSet<QString> labels{u"acc"_s, u"cert"_s,   u"inv"_s, u"lic"_s,    u"reg"_s,  u"ref"_s,
                                      u"ser"_s, u"serial"_s, u"tel"_s, u"policy"_s, u"order"_s};
    return topLevelDomain.compare(u"no", Qt::CaseInsensitive) == 0 &&
           labels.contains(name.toString().toLower());
}

enum class Path { absent, present };

bool isDomain(QStringView host, Path path) {
    const QList<QStringView> labels = host.split(u'.');
    const QString topLevelDomain = labels.last().toString();
    const QStringView name = labels[labels.size() - 2];
    const QStringView names = host.chopped(topLevelDomain.size());
    if (std::ranges::none_of(names, [](QChar character) { return character.isLetter(); }))
        return false; // 10.30.am
    if (path == Path::absent) {
        if (labels.size() == 2 && isFileLike(topLevelDomain))
            return false;
        // Mr.Smith, done.Now, org.gnome.Shell
        if (topLevelDomain[0].isUpper() && topLevelDomain[1].isLower())
            return false;
        if (name.size() == 1)
            return false; // f.eks
        if (isNumberLabel(name, topLevelDomain))
            return false;
    }
    return isTopLevelDomain(topLevelDomain);
}

/// Without the punctuation of the sentence around an address. As in GitHub's autolinks, a closing bracket
/// stays when it was opened inside: en.wikipedia.org/wiki/Foo_(bar).
QStringView trimmed(QStringView address) {
    while (!address.isEmpty()) {
        const QChar last = address.back();
        const qsizetype bracket = u")]}"_s.indexOf(last);
        const bool unbalanced = bracket >= 0 && address.count(last) > address.count(u"([{"[bracket]);
        if (!unbalanced && !u".,;:!?'’‘\"*_~"_s.contains(last))
            break;
        address.chop(1);
    }
    return address;
}

class LinkCollector {
public:
    explicit LinkCollector(QStringView line) : m_line(line) {}

    void add(TextRange range, QLatin1StringView urlPrefix) {
        const auto overlaps = [&](const DataMatch& link) { return link.range.intersects(range); };
        if (std::ranges::none_of(m_links, overlaps))
            m_links.push_back({DataMatch::Type::link, range,
                               urlPrefix + m_line.sliced(range.location, range.length).toString()});
    }

    std::vector<DataMatch> sorted() && {
        std::ranges::sort(m_links, {}, [](const DataMatch& link) { return link.range.location; });
        return std::move(m_links);
    }

private:
    QStringView m_line;
    std::vector<DataMatch> m_links;
};

} // namespace

std::vector<DataMatch> LinkFinder::find(QStringView line) const {
    if (!line.contains(u'.') && !line.contains(u"://"))
        return {};
    const Expressions& expressions = Expressions::shared();
    LinkCollector links(line);
    // First, because a web address may contain an e-mail address and must be hidden beyond it.
    for (const auto& match : expressions.explicitAddress.matches(line)) {
        const QStringView address = trimmed(line.sliced(match.range.location, match.range.length));
        const TextRange range{match.range.location, address.size()};
        const TextRange scheme = match.groups[0];
        const bool complete = scheme.location >= 0 ? range.length > scheme.length
                                                   : address.sliced(u"www."_s.size()).contains(u'.');
        if (complete)
            links.add(range, scheme.location >= 0 ? ""_L1 : "http://"_L1);
    }
    for (const TextRange range : expressions.email.ranges(line))
        links.add(range, "mailto:"_L1);
    for (const auto& match : expressions.bareDomain.matches(line)) {
        const TextRange host = match.groups[0];
        const Path path = match.groups[1].location >= 0 ? Path::present : Path::absent;
        if (isDomain(line.sliced(host.location, host.length), path))
            links.add(
                {match.range.location, trimmed(line.sliced(match.range.location, match.range.length)).size()},
                "http://"_L1);
    }
    return std::move(links).sorted();
}

} // namespace Veilshot
