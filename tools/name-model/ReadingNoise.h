#pragma once

#include "LabelledLine.h"

#include <random>

namespace Veilshot {

/// Makes lines look as if they had been read from a picture or typed in a hurry: confused letters, lost
/// diacritics and blanks, other capitals. The names move along.
class ReadingNoise {
public:
    explicit ReadingNoise(unsigned seed) : m_random(seed) {}

    LabelledLine applied(const LabelledLine& line);

private:
    bool happens(double probability) { return std::bernoulli_distribution(probability)(m_random); }
    QString misread(QStringView rest, qsizetype& taken);

    std::mt19937 m_random;
};

} // namespace Veilshot
