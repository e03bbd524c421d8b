#include "VeilshotCore/Analysis/NameTagging/NameLexicon.h"

#include "VeilshotCore/Analysis/NameTagging/FrontCoding.h"

#include <QFile>
#include <algorithm>
#include <array>
#include <map>

namespace Veilshot {

using namespace Qt::StringLiterals;

namespace {

QByteArray resource(const QString& name) {
    QFile file(u":/Veilshot/Analysis/"_s + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

WordTraits traitOfFlag(char flag) {
    switch (flag) {
    case 'F':
        return WordTrait::strongFirstName;
    case 'f':
        return WordTrait::weakFirstName;
    case 'L':
        return WordTrait::strongLastName;
    case 'l':
        return WordTrait::weakLastName;
    case 'P':
        return WordTrait::place;
    case 'c':
        return WordTrait::frequentWord;
    case 'w':
        return WordTrait::word;
    case 'x':
        return WordTrait::rareWord;
    case 'd':
        return WordTrait::danishWord;
    case 'r':
        return WordTrait::rareDanishWord;
    default:
        return {};
    }
}

WordTraits traitOfSection(std::string_view section) {
    constexpr std::array<std::pair<std::string_view, WordTrait>, 21> sections{{
        {"title", WordTrait::title},
        {"role", WordTrait::role},
        {"label", WordTrait::label},
        {"greeting", WordTrait::greeting},
        {"by", WordTrait::nameBefore},
        {"with", WordTrait::namePossible},
        {"verb", WordTrait::personVerb},
        {"auxiliary", WordTrait::auxiliary},
        {"particle", WordTrait::particle},
        {"suffix", WordTrait::suffix},
        {"organisation", WordTrait::organisation},
        {"before-place", WordTrait::beforePlace},
        {"locative", WordTrait::locative},
        {"function", WordTrait::functionWord},
        {"calendar", WordTrait::calendar},
        {"danish", WordTrait::danishWord},
        {"english", WordTrait::word},
        {"product", WordTrait::product},
        {"place", WordTrait::place},
        {"first", WordTrait::weakFirstName},
        {"last", WordTrait::weakLastName},
    }};
    for (const auto& [name, trait] : sections) {
        if (name == section)
            return trait;
    }
    return {};
}

/// Cuts the text before `separator` off the front of `text`.
std::string_view takeUntil(std::string_view& text, char separator) {
    const size_t end = std::min(text.find(separator), text.size());
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return taken;
}

} // namespace

const NameLexicon& NameLexicon::shared() {
    static const NameLexicon lexicon(frontDecoded(resource(u"NameLexicon.txt"_s)),
                                     resource(u"NameContext.txt"_s) + resource(u"NameAdditions.txt"_s));
    return lexicon;
}

NameLexicon::NameLexicon(QByteArray names, const QByteArray& context) : m_names(std::move(names)) {
    readNames();
    readContext(context);
}

void NameLexicon::readNames() {
    std::string_view rest(m_names.constData(), static_cast<size_t>(m_names.size()));
    m_entries.reserve(static_cast<size_t>(m_names.count('\n')));
    while (!rest.empty()) {
        std::string_view flags = takeUntil(rest, '\n');
        const std::string_view key = takeUntil(flags, ' ');
        WordTraits traits;
        for (const char flag : flags)
            traits |= traitOfFlag(flag);
        const bool isInOrder = m_entries.empty() || m_entries.back().key < key;
        if (traits && isInOrder)
            m_entries.push_back({key, traits});
    }
}

void NameLexicon::readContext(const QByteArray& context) {
    std::map<std::string, WordTraits> words;
    std::string_view rest(context.constData(), static_cast<size_t>(context.size()));
    std::string_view section;
    while (!rest.empty()) {
        std::string_view line = takeUntil(rest, '\n');
        if (line.empty() || line.front() == '#')
            continue;
        if (line.front() == '[') {
            section = line.substr(1, line.find(']') - 1);
        } else if (section == "brand") {
            m_brands.emplace_back(line);
        } else {
            while (!line.empty()) {
                if (const std::string_view word = takeUntil(line, ' '); !word.empty())
                    words[std::string(word)] |= traitOfSection(section);
            }
        }
    }
    std::sort(m_brands.begin(), m_brands.end());
    m_context.assign(words.begin(), words.end());
}

WordTraits NameLexicon::traits(std::string_view folded) const {
    WordTraits traits;
    const auto entry =
        std::lower_bound(m_entries.begin(), m_entries.end(), folded,
                         [](const Entry& candidate, std::string_view key) { return candidate.key < key; });
    if (entry != m_entries.end() && entry->key == folded)
        traits |= entry->traits;
    const auto contextWord =
        std::lower_bound(m_context.begin(), m_context.end(), folded,
                         [](const auto& candidate, std::string_view key) { return candidate.first < key; });
    if (contextWord != m_context.end() && contextWord->first == folded)
        traits |= contextWord->second;
    return traits;
}

bool NameLexicon::isBrand(std::string_view first, std::string_view second) const {
    std::string phrase(first);
    phrase += ' ';
    phrase += second;
    return std::binary_search(m_brands.begin(), m_brands.end(), phrase);
}

} // namespace Veilshot
