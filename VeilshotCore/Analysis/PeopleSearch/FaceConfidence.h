#pragma once

namespace Veilshot {

/// What speaks for a candidate being a face.
struct FaceEvidence {
    double score = 0;       ///< the face detector's measure
    int frontalSupport = 0; ///< neighbouring hits of the cascade for frontal faces
    int profileSupport = 0; ///< the same for profiles, of whichever side has more
    double width = 0;       ///< of the candidate's box, in pixels
};

/// How likely it is a face, 0…1: a logistic regression over hand-labelled candidates from photographs and
/// composed screenshots. On images held out from the fit a confidence of 0.4 was right in 44 of 100 cases,
/// 0.6 in 72 and 0.95 in 99. Skin colour is left out on purpose: it helped little and would favour some skins
/// over others.
double faceConfidence(const FaceEvidence& evidence);

} // namespace Veilshot
