import QtQuick

/// How a page comes and goes: beside its place, blurred, faded. All are 0, 0 and 1 at rest.
Item {
    id: motion

    property real offset: 0
    /// The radius.
    property real blur: 0

    transform: Translate {
        x: motion.offset
    }
    // Drawn with fewer pixels and enlarged again: next to nothing to compute, where a true blur would keep a machine
    // without a graphics card busy. The software renderer has no layers; there the page only moves and fades.
    layer.enabled: (blur > 0 || opacity < 1) && GraphicsInfo.api !== GraphicsInfo.Software
    layer.smooth: true
    layer.textureSize: {
        const scale = Screen.devicePixelRatio / (1 + 3 * blur / 8);
        return Qt.size(Math.ceil(width * scale), Math.ceil(height * scale));
    }
}
