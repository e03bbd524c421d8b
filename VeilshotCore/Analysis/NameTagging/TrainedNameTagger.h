#pragma once

#include "VeilshotCore/Analysis/NameTagger.h"
#include "VeilshotCore/Analysis/NameTagging/ListNameTagger.h"
#include "VeilshotCore/Analysis/NameTagging/NameSegmenter.h"

#include <QByteArray>
#include <memory>

namespace Veilshot {

/// Finds names in English and Danish lines with a model learnt from a hundred and fifty thousand lines, to
/// which the names found by lists and rules are one hint among many: the rules know forms and labels well,
/// the model names that stand in no list. Titles and the English ’s stay outside, a Danish genitive s inside;
/// two names run together ("LeonieSenger") are looked at as two words.
class TrainedNameTagger final : public NameTagger {
public:
    /// With the model built into the program, read on first use in a few hundredths of a second.
    TrainedNameTagger();
    /// With a model of one's own, see NameModel. One that cannot be read leaves what the lists find.
    explicit TrainedNameTagger(const QByteArray& model);

    std::vector<TextRange> personalNames(const QString& line) const override;

private:
    std::vector<TextRange> namesInWhole(const QString& line) const;
    std::vector<TextRange> namesAsWritten(const QString& text) const;

    std::shared_ptr<const NameSegmenter> m_segmenter; ///< null without a model
    ListNameTagger m_listTagger;
};

} // namespace Veilshot
