#include "Veilshot/Updates/ReleaseVersion.h"

#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// The runs of digits and of letters in a suffix: "beta.10" and "beta10" are both "beta", "10".
QStringList parts(const QString& suffix) {
    static const QRegularExpression run(u"[0-9]+|[A-Za-z]+"_s);
    QStringList found;
    for (const auto& match : run.globalMatch(suffix))
        found.push_back(match.captured());
    return found;
}

std::weak_ordering compareParts(const QString& left, const QString& right) {
    bool isLeftNumber = false;
    bool isRightNumber = false;
    const int leftNumber = left.toInt(&isLeftNumber);
    const int rightNumber = right.toInt(&isRightNumber);
    if (isLeftNumber && isRightNumber)
        return leftNumber <=> rightNumber;
    if (isLeftNumber != isRightNumber)
        return isLeftNumber ? std::weak_ordering::less : std::weak_ordering::greater;
    return QString::compare(left, right, Qt::CaseInsensitive) <=> 0;
}

std::weak_ordering compareSuffixes(const QString& left, const QString& right) {
    if (left.isEmpty() || right.isEmpty())
        return left.isEmpty() <=> right.isEmpty();
    const QStringList leftParts = parts(left);
    const QStringList rightParts = parts(right);
    return std::lexicographical_compare_three_way(leftParts.begin(), leftParts.end(), rightParts.begin(),
                                                  rightParts.end(), compareParts);
}

} // namespace

std::optional<ReleaseVersion> ReleaseVersion::parse(const QString& text) {
    // No number overflows.
    static const QRegularExpression form(
        uR"(\A([0-9]{1,9}(?:\.[0-9]{1,9}){0,3})(?:-((?=[^.-])(?:[0-9]{1,9}(?![0-9])|[A-Za-z.-]){1,40}))?\z)"_s);
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    ReleaseVersion version;
    version.m_text = text;
    version.m_number = QVersionNumber::fromString(match.captured(1)).normalized();
    version.m_suffix = match.captured(2);
    return version;
}

std::weak_ordering operator<=>(const ReleaseVersion& left, const ReleaseVersion& right) {
    const int byNumber = QVersionNumber::compare(left.m_number, right.m_number);
    return byNumber != 0 ? byNumber <=> 0 : compareSuffixes(left.m_suffix, right.m_suffix);
}

} // namespace Veilshot
