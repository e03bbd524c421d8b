#include "Veilshot/Features/Editor/ImageImporter.h"

#include "Veilshot/Features/Editor/EditorStore.h"
#include "Veilshot/Platform/FilePanel.h"

#include <QScopeGuard>
#include <QTimer>
#include <utility>

using namespace Qt::StringLiterals;

namespace Veilshot {

ImageImporter::ImageImporter(EditorStore& store, FilePanel& panel, QObject* parent)
    : QObject(parent), m_store(store), m_panel(panel) {}

void ImageImporter::present() {
    // Not from within the view's handler, which would then last as long as the panel.
    if (std::exchange(m_isPresenting, true))
        return;
    QTimer::singleShot(0, this, [this] {
        const auto done = qScopeGuard([this] { m_isPresenting = false; });
        if (const auto url = m_panel.chooseImage(u"Open Image"_s))
            m_store.load(*url);
    });
}

} // namespace Veilshot
