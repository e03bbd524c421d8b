#pragma once

#include "VeilshotCore/Analysis/NameTagger.h"
#include "VeilshotCore/Analysis/NameTagging/NameLexicon.h"

namespace Veilshot {

/// Finds names in English and Danish lines by name lists, capitals and the words around: every run of words
/// that could be a name gets points for what the lists know of it and for its surroundings, and the best set
/// of runs above a threshold is returned. Titles, the English ’s and handles behind an @ stay outside, a
/// Danish genitive s inside. A missed name is a leak and a false one only a blurred word, so the thresholds
/// lean to finding.
class ListNameTagger final : public NameTagger {
public:
    /// `lexicon` must outlive the tagger.
    explicit ListNameTagger(const NameLexicon& lexicon = NameLexicon::shared());

    std::vector<TextRange> personalNames(const QString& text) const override;

private:
    const NameLexicon& m_lexicon;
};

} // namespace Veilshot
