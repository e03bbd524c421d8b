#pragma once

#include "Veilshot/Features/Editor/EditorStore.h"
#include "Veilshot/Platform/Clipboard.h"
#include "VeilshotCore/Rendering/ScreenshotRedactor.h"
#include "tests/Veilshot/Platform/ImageSamples.h"
#include "tests/Veilshot/StandIns.h"

#include <gmock/gmock.h>

namespace Veilshot::StandIns {

/// A store whose scans find what the test has prepared.
class PreparedStore {
public:
    SensitiveRegions found;

    EditorStore& operator*() { return m_store; }
    EditorStore* operator->() { return &m_store; }

    void scan(QColor color, QSize size) {
        m_store.load(ImageSamples::filled(color, size));
        ASSERT_TRUE(waitUntil([&] { return m_store.stage() == EditorStore::Stage::Ready; }));
    }

private:
    static QFuture<DetectionOutcome> answer(const SensitiveRegions& regions) {
        return QtFuture::makeReadyFuture(DetectionOutcome(regions));
    }

    SystemClipboard m_clipboard;
    AnsweringPanel m_panel;
    ManualClock m_clock;
    EditorStore m_store{
        nullptr,
        {.detectText = [this](const QImage&) { return answer(found); },
         .detectPeople = [](const QImage&) { return answer({}); },
         .render =
             [](const QImage& bitmap, const SensitiveRegions& regions, RedactionStyle style,
                double intensity) { return ScreenshotRedactor().render(bitmap, regions, style, intensity); },
         .clipboard = m_clipboard,
         .filePanel = m_panel,
         .clock = m_clock}};
};

} // namespace Veilshot::StandIns
