#include "VeilshotCore/Detection/TextPatterns.h"

#include <QChar>

namespace Veilshot::TextPatterns {

namespace {

/// The values of the decimal digits, of any script, in text order.
std::vector<int> digits(QStringView text) {
    std::vector<int> digits;
    for (const char32_t character : text.toUcs4()) {
        const int value = QChar::digitValue(character);
        if (value >= 0)
            digits.push_back(value);
    }
    return digits;
}

bool accepts(QStringView) {
    return true;
}

bool hasPhoneDigitCount(QStringView text) {
    const std::size_t count = digits(text).size();
    return count >= 7 && count <= 15;
}

} // namespace

const std::vector<Rule>& rules() {
    static const std::vector<Rule> table = [] {
        std::vector<Rule> rules;
        const auto add = [&](SensitiveKind kind, QStringView pattern, bool (*validator)(QStringView)) {
            rules.push_back({kind, RegularExpression(pattern), validator});
        };
        add(SensitiveKind::email, uR"(\b[A-Z0-9._%+-]+@[A-Z0-9.-]+\.[A-Z]{2,}\b)", accepts);
        add(SensitiveKind::identity, uR"((?<!\d)\d{6}[- ]?\d{4}(?!\d))", accepts);
        add(SensitiveKind::payment, uR"(\b[A-Z]{2}\d{2}(?:[ -]?[A-Z0-9]){11,30}\b)", accepts);
        add(SensitiveKind::payment, uR"((?<!\d)(?:\d[ -]?){13,19}(?!\d))", passesLuhn);
        add(SensitiveKind::phone, uR"((?<!\d)(?:\+?\d[\d ()-]{5,}\d)(?!\d))", hasPhoneDigitCount);
        add(SensitiveKind::web, uR"(\b(?:https?://|www\.)[^\s<>()]+)", accepts);
        add(SensitiveKind::web,
            uR"((?<!\d)(?:(?:25[0-5]|2[0-4]\d|1?\d?\d)\.){3}(?:25[0-5]|2[0-4]\d|1?\d?\d)(?!\d))", accepts);
        add(SensitiveKind::secret, uR"(\b(?:sk|pk)_[A-Z0-9_-]{16,}\b)", accepts);
        add(SensitiveKind::secret, uR"(\b[A-Z0-9_-]{32,}\b)", accepts);
        return rules;
    }();
    return table;
}

const RegularExpression& labeledLine() {
    static const RegularExpression expression(
        uR"(\b(?:name|full name|navn|email|e-mail|phone|telephone|mobile|telefon|address|adresse|street|gade|cpr|)"
        uR"(ssn|social security|date of birth|birthday|fødselsdato|account|konto|iban|passport|pasnummer|api key|)"
        uR"(secret|token)\s*[:#])");
    return expression;
}

bool passesLuhn(QStringView text) {
    const std::vector<int> values = digits(text);
    if (values.size() < 13 || values.size() > 19)
        return false;
    int sum = 0;
    for (std::size_t position = 0; position < values.size(); ++position) {
        const int digit = values[values.size() - 1 - position];
        if (position % 2 == 0)
            sum += digit;
        else
            sum += digit > 4 ? 2 * digit - 9 : 2 * digit;
    }
    return sum % 10 == 0;
}

} // namespace Veilshot::TextPatterns
