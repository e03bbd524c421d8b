#pragma once

#include "VeilshotCore/Analysis/IdlePool.h"
#include "VeilshotCore/Analysis/PeopleAnalyzer.h"

#include <memory>

namespace Veilshot {

class FaceVerifier;
struct FaceCandidate;

/// Finds faces in the parts of a picture that look like photographs, and derives bodies from them; works
/// without a network of any kind and the same on every machine. It serves avatars, calls, portraits and
/// groups. It misses faces turned further than about 60 degrees, bent down or strongly tilted, and bodies
/// whose face cannot be seen; it takes some emoji, buttons and product pictures for faces.
///
/// Returns what it holds at least a tenth likely. Faces remain in the list when a body was derived from them.
/// A face too small to be read is reported as its whole avatar. Alpha is ignored.
///
/// The face detector and the cascades load with the first picture that holds a photograph and then stay.
/// Works on all processors in the pool of the analyses.
class HogPeopleAnalyzer : public PeopleAnalyzer {
public:
    /// Where the build found the files of the package opencv-data.
    static QString defaultCascadeFolder();

    explicit HogPeopleAnalyzer(const QString& cascadeFolder = defaultCascadeFolder());
    ~HogPeopleAnalyzer() override;

    AnalysisOutcome<PeopleObservations> analyze(const QImage& image,
                                                const CancellationCheck& isCancelled) const override;

private:
    AnalysisOutcome<PeopleObservations> search(const QImage& image,
                                               const CancellationCheck& isCancelled) const;
    double confidence(const QImage& image, const FaceCandidate& candidate) const;

    AnalysisOutcome<std::unique_ptr<FaceVerifier>> takeVerifier() const;

    const QString m_cascadeFolder;
    mutable IdlePool<FaceVerifier> m_verifiers;
};

} // namespace Veilshot
