#include "VeilshotCore/Analysis/PeopleSearch/DrawnFaces.h"

#include "VeilshotCore/Analysis/PeopleSearch/AreaTones.h"

namespace Veilshot {

namespace {

constexpr int fewestPixels = 50;

/// Of one tone: noise stays within these levels.
constexpr int noiseLevels = 9;
constexpr double mostOfOneTone = 0.45;

/// Of two tones, which either hardly vary or change in many steep steps.
constexpr int toneLevels = 17;
constexpr double leastSeparation = 0.83;
constexpr double leastOfTwoTones = 0.80;
constexpr double leastSteepSteps = 0.25;

constexpr double mostSmileyYellow = 0.40;

/// Around a doubtful face: a ground with little on it, …
constexpr double leastGroundAround = 0.68;
constexpr double leastOfTwoGroundsAround = 0.85;
/// … or steep strokes, with much of their ground between them …
constexpr double leastStepsOfStrokes = 0.35;
constexpr double leastGroundOfStrokes = 0.50;
/// … or their two tones both in the box and around it, as those of a letter between others on a button.
constexpr double leastStepsOfLetter = 0.32;
constexpr double leastSeparationInLetter = 0.77;
constexpr double leastSeparationAroundLetter = 0.85;
/// Or they are far apart in both.
constexpr double leastSeparationInBoldLetter = 0.90;
constexpr double leastSeparationAroundBoldLetter = 0.87;

bool areApart(const AreaTones& inside, double leastInside, const AreaTones& around, double leastAround) {
    return inside.levels().separation() > leastInside && around.levels().separation() > leastAround;
}

} // namespace

bool looksDrawn(const QImage& image, const QRect& box) {
    const AreaTones tones = AreaTones::of(image, box);
    // Large letters in a JPEG file have the outlines of faces, but not their shades.
    const bool isTwoToned = tones.levels().separation() > leastSeparation &&
                            (tones.steepShare() > leastSteepSteps ||
                             tones.levels().shareOfTwoWindows(toneLevels) > leastOfTwoTones);
    return tones.levels().count() < fewestPixels ||
           tones.levels().shareOfFullestWindow(noiseLevels) > mostOfOneTone || isTwoToned ||
           tones.smileyYellowShare() > mostSmileyYellow;
}

bool looksDrawnAround(const QImage& image, const QRect& box) {
    const int margin = box.width() / 2;
    const AreaTones inside = AreaTones::of(image, box);
    const AreaTones around = AreaTones::of(image, box.adjusted(-margin, -margin, margin, margin));
    const double ground = around.levels().shareOfFullestWindow(toneLevels);
    return ground > leastGroundAround ||
           around.levels().shareOfTwoWindows(toneLevels) > leastOfTwoGroundsAround ||
           (ground > leastGroundOfStrokes && inside.steepShare() > leastStepsOfStrokes) ||
           (inside.steepShare() > leastStepsOfLetter &&
            areApart(inside, leastSeparationInLetter, around, leastSeparationAroundLetter)) ||
           areApart(inside, leastSeparationInBoldLetter, around, leastSeparationAroundBoldLetter);
}

} // namespace Veilshot
