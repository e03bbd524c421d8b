#include "Veilshot/Features/Editor/ImageImporter.h"

#include "Veilshot/Features/Editor/EditorStore.h"
#include "Veilshot/Platform/FilePanel.h"

#include <QTimer>

using namespace Qt::StringLiterals;

namespace Veilshot {

ImageImporter::ImageImporter(EditorStore& store, FilePanel& panel, QObject* parent)
    : QObject(parent), m_store(store), m_panel(panel) {}

void ImageImporter::present() {
    // Not from within the view's handler, which would then last as long as the panel.
    QTimer::singleShot(0, this, [this] {
        if (const auto url = m_panel.chooseImage(u"Open Image"_s))
            m_store.load(*url);
    });
}

} // namespace Veilshot
