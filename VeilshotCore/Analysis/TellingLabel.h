#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QString>
#include <optional>

namespace Veilshot {

/// What a label says of the value beside or below it.
enum class LabelTopic {
    birth,       ///< a date of birth
    number,      ///< of somebody's document or membership
    branch,      ///< the number of a branch of a bank
    secret,      ///< a password, a code or a key
    address,     ///< an address or the line of one that has the street
    town,        ///< the town of one
    postcode,    ///< a part of one that may be nothing but a number: postcode, flat
    state,       ///< of a federation
    houseNumber, ///< a bare "No.", which has many other meanings
};

/// What the text says if it is a label of details that nothing but their label tells from other words and
/// numbers. Of several things ("Passport / ID no.") the first that is one.
std::optional<LabelTopic> topicOfLabel(QStringView text);

inline bool isLabelOfDetail(QStringView text) {
    return topicOfLabel(text).has_value();
}

/// An expression without groups for labels of somebody's numbers within a line. Ignores case by itself.
QString labelOfNumber();

/// A line that is a label and its value, a tab or a colon with a blank between them. Behind a colon no state
/// and no house number, for which nothing but the other fields of an address tells a bare "No.".
struct LabelledValue {
    LabelTopic topic;
    QStringView label; ///< of the line, which must outlive it; without the blanks around it, as the value is
    QStringView value; ///< not empty
    TextRange range;   ///< of the value

    static std::optional<LabelledValue> of(QStringView line);
};

/// Whether the text is a label of parts of people's names: "Efternavn".
bool isLabelOfName(const QString& text);

/// Whether the text is one of these or another label of people: "Assignee". Not "Name", which files, products
/// and machines have too.
bool isLabelOfPerson(const QString& text);

} // namespace Veilshot
