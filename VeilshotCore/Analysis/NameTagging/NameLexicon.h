#pragma once

#include <QByteArray>
#include <QFlags>
#include <string>
#include <string_view>
#include <vector>

namespace Veilshot {

/// What is known of a single word.
enum class WordTrait : unsigned {
    // The name lists; "strong" names are common or stand in several lists.
    strongFirstName = 1u << 0,
    weakFirstName = 1u << 1,
    strongLastName = 1u << 2,
    weakLastName = 1u << 3,
    // Ordinary words and places, many of them names as well.
    frequentWord = 1u << 4, ///< everyday English
    word = 1u << 5,         ///< other English
    rareWord = 1u << 6,     ///< English; kept for names only
    danishWord = 1u << 7,
    rareDanishWord = 1u << 8, ///< kept for names only
    place = 1u << 9,
    calendar = 1u << 10, ///< months, days, seasons, feasts
    product = 1u << 11,  ///< products and companies
    // Words that say something of their neighbours.
    title = 1u << 12,        ///< Mr, Dr, Fru: part of no name
    role = 1u << 13,         ///< professions, functions and relations
    label = 1u << 14,        ///< what stands in front of a name in a form: Author, Til
    greeting = 1u << 15,     ///< also closing words and thanks
    nameBefore = 1u << 16,   ///< hardly anything but a name follows: by, skrev
    namePossible = 1u << 17, ///< a name may follow: with, hos
    personVerb = 1u << 18,   ///< what people do: replied, skriver
    auxiliary = 1u << 19,
    particle = 1u << 20,     ///< van, de, bin inside a name
    suffix = 1u << 21,       ///< Jr, III
    organisation = 1u << 22, ///< makes a company, institution or street of the words in front of it
    beforePlace = 1u << 23,  ///< makes a place or institution of the words behind it
    locative = 1u << 24,     ///< a place rather than a person follows: in, på
    functionWord = 1u << 25, ///< pronouns and the like, no name even with a capital
};
Q_DECLARE_FLAGS(WordTraits, WordTrait)
Q_DECLARE_OPERATORS_FOR_FLAGS(WordTraits)

/// Name and word lists, looked up by folded words (see foldedName()). Immutable; serves any number of
/// threads.
class NameLexicon {
public:
    /// The lists built into the program, read on first use in a few milliseconds.
    static const NameLexicon& shared();

    /// `names` holds one "key flags" per line in byte order, `context` sections of words; the two files in
    /// Data/ explain themselves. A line that cannot be understood is left out.
    NameLexicon(QByteArray names, const QByteArray& context);

    /// Nothing for an unknown word.
    WordTraits traits(std::string_view folded) const;
    /// Whether the two words together are a company or place that sounds like a person: "morgan", "stanley".
    bool isBrand(std::string_view first, std::string_view second) const;
    qsizetype size() const { return static_cast<qsizetype>(m_entries.size()); }

private:
    struct Entry {
        std::string_view key;
        WordTraits traits;
    };

    void readNames();
    void readContext(const QByteArray& context);

    QByteArray m_names; ///< backs the keys, so that so many strings need not be allocated
    std::vector<Entry> m_entries;
    std::vector<std::pair<std::string, WordTraits>> m_context;
    std::vector<std::string> m_brands;
};

} // namespace Veilshot
