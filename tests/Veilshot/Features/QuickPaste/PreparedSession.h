#pragma once

#include "Veilshot/Features/QuickPaste/QuickPasteSession.h"
#include "tests/Veilshot/Features/Editor/PreparedStore.h"

#include <QMimeData>

namespace Veilshot::StandIns {

struct HeldClipboard : Clipboard {
    QMimeData held;

    const QMimeData* contents() const override { return &held; }
    bool write(const QImage&) override { return false; }
};

/// What a quick-paste session works with.
struct SessionParts {
    PreparedStore store;
    HeldClipboard clipboard;
    AnsweringPanel filePanel;
    int beeps = 0;

    QuickPasteSession::Collaborators collaborators() {
        return {*store, clipboard, filePanel, [this] { ++beeps; }};
    }
    static QImage picture(QSize size) { return ImageSamples::filled(Qt::blue, size); }
};

} // namespace Veilshot::StandIns
