#include "VeilshotCore/Analysis/TellingLabel.h"

#include "VeilshotCore/Analysis/RegularExpression.h"

namespace Veilshot {

namespace {

constexpr qsizetype longestLabel = 32;

} // namespace

bool isLabelOfDetail(const QString& text) {
    static const RegularExpression expression(
        uR"(^(?:(?:date of )?birth(?: ?da(?:y|te))?|born|dob|født|fødselsda(?:g|to))"
        uR"(|(?:[\p{L}-]+ ){0,2}(?:pass(?:word|code|phrase)?|secret|token|pin(?: ?code)?|(?:api|access|license) key)"
        uR"(|kodeord|adgangskode|pinkode|nøgle|pas(?:nummer|sport)?)|kørekort|driv\w+ licen[cs]e|sundhedskort)"
        uR"(|reg(?:istrerings)?[. -]{0,2}(?:nr|nummer|no)?|sort ?code)"
        uR"(|(?:passport|pas|id|identity|ni|national insurance|social security|tax|ssn|tin|health|patient))"
        uR"((?:[- ]?(?:card|kort|no|nr|number|nummer|id)){1,2})[.*:]?$)");
    return text.size() <= longestLabel && expression.hasMatch(text);
}

bool isLabelOfName(const QString& text) {
    static const RegularExpression expression(
        uR"(^(?:(?:first|last|given|family|full|maiden|middle)[ _]?names?|given|surname|(?:for|efter|mellem)navne?)[*:]?$)");
    return text.size() <= longestLabel && expression.hasMatch(text);
}

bool isLabelOfPerson(const QString& text) {
    static const RegularExpression expression(
        uR"(^(?:patient(?: name)?|assignee|assigned to|reporter|reported by|requester|author|forfatter|owner|ejer)"
        uR"(|employee|medarbejder|student|elev|attendees?|deltagere?|participants?|passengers?|passagerer?|guests?)"
        uR"(|contact(?: person)?|kontakt(?:person)?|account manager|manager|leder|doctor|gp|læge|nurse|sygeplejerske)"
        uR"(|cardholder|name on card|kortholder|account holder|kontohaver|insured|policyholder|claimant|driver|fører)"
        uR"(|next of kin|pårørende|spouse|ægtefælle|mother|father|parents?|forældre|guardian|værge|tenant|lejer)"
        uR"(|(?:created|reviewed|approved|signed|prepared|requested|written|submitted|opened|closed|ordered) by)"
        uR"(|oprettet af|godkendt af|underskrevet af|recipient|modtager|organi[sz]er|arrangør|host|vært)[*:]?$)");
    return isLabelOfName(text) || (text.size() <= longestLabel && expression.hasMatch(text));
}

} // namespace Veilshot
