#pragma once

#include <QImage>

class QMimeData;

namespace Veilshot {

/// The general clipboard. Main thread only.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    /// What it holds now, or null. Owned by the clipboard and good until the event loop runs again.
    virtual const QMimeData* contents() const = 0;
    /// Replaces everything on it by this bitmap (see ImageDecoder), as a PNG file and as an image object.
    /// False if it is not there afterwards.
    virtual bool write(const QImage& bitmap) = 0;
};

/// The desktop's, through Qt. Needs a QGuiApplication. What was written lasts for as long as the application.
/// On Wayland only a program that has had input may write; a compositor refuses others without a word, so
/// that `write` cannot tell. And only the program with the focus may read: to others the clipboard is empty.
class SystemClipboard : public Clipboard {
public:
    const QMimeData* contents() const override;
    bool write(const QImage& bitmap) override;
};

} // namespace Veilshot
