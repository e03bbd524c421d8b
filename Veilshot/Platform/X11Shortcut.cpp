#include "Veilshot/Platform/X11Shortcut.h"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <span>
#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon-x11.h>

namespace Veilshot {

namespace {

template<auto release>
struct Releaser {
    void operator()(auto* object) const { release(object); }
};

using Context = std::unique_ptr<xkb_context, Releaser<xkb_context_unref>>;
using Keymap = std::unique_ptr<xkb_keymap, Releaser<xkb_keymap_unref>>;
using State = std::unique_ptr<xkb_state, Releaser<xkb_state_unref>>;
using ModifierMap = std::unique_ptr<xcb_get_modifier_mapping_reply_t, Releaser<std::free>>;

std::span<const xkb_keysym_t> symbols(xkb_keymap* keymap, xkb_keycode_t key, xkb_layout_index_t layout,
                                      xkb_level_index_t level) {
    const xkb_keysym_t* found = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap, key, layout, level, &found);
    return {found, std::size_t(count)};
}

bool hasSymbol(xkb_keymap* keymap, xkb_keycode_t key, xkb_keysym_t symbol) {
    for (xkb_layout_index_t layout = 0; layout < xkb_keymap_num_layouts_for_key(keymap, key); ++layout) {
        for (xkb_level_index_t level = 0; level < xkb_keymap_num_levels_for_key(keymap, key, layout);
             ++level) {
            if (std::ranges::count(symbols(keymap, key, layout, level), symbol))
                return true;
        }
    }
    return false;
}

/// The modifiers that keys with one of these symbols have been given.
std::uint16_t modifiersOf(const xcb_get_modifier_mapping_reply_t* map, xkb_keymap* keymap,
                          std::initializer_list<xkb_keysym_t> wanted) {
    const xcb_keycode_t* keys = xcb_get_modifier_mapping_keycodes(map);
    std::uint16_t mask = 0;
    for (int i = 0; i < xcb_get_modifier_mapping_keycodes_length(map); ++i) {
        for (const xkb_keysym_t symbol : wanted) {
            if (keys[i] != XCB_NO_SYMBOL && hasSymbol(keymap, keys[i], symbol))
                mask |= 1 << (i / map->keycodes_per_modifier);
        }
    }
    return mask;
}

std::optional<xkb_keycode_t> keyThatTypes(xkb_keysym_t symbol, xkb_keymap* keymap,
                                          xkb_layout_index_t layout) {
    for (auto key = xkb_keymap_min_keycode(keymap); key <= xkb_keymap_max_keycode(keymap); ++key) {
        if (std::ranges::count(symbols(keymap, key, layout, 0), symbol))
            return key;
    }
    return std::nullopt;
}

xkb_keycode_t keyForB(xkb_keymap* keymap, xkb_layout_index_t current) {
    if (const auto key = keyThatTypes(XKB_KEY_b, keymap, current))
        return *key;
    for (xkb_layout_index_t layout = 0; layout < xkb_keymap_num_layouts(keymap); ++layout) {
        if (const auto key = keyThatTypes(XKB_KEY_b, keymap, layout))
            return *key;
    }
    return xkb_keymap_key_by_name(keymap, "AB05");
}

} // namespace

std::optional<X11Shortcut> X11Shortcut::find(xcb_connection_t* connection) {
    if (!xkb_x11_setup_xkb_extension(connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                                     XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr,
                                     nullptr))
        return std::nullopt;
    const auto device = xkb_x11_get_core_keyboard_device_id(connection);
    const Context context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    const Keymap keymap(
        xkb_x11_keymap_new_from_device(context.get(), connection, device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!keymap)
        return std::nullopt;
    const State state(xkb_x11_state_new_from_device(keymap.get(), connection, device));
    const ModifierMap map(
        xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection), nullptr));
    if (!state || !map)
        return std::nullopt;

    const auto super = modifiersOf(map.get(), keymap.get(), {XKB_KEY_Super_L, XKB_KEY_Super_R});
    const auto locks = modifiersOf(map.get(), keymap.get(), {XKB_KEY_Num_Lock, XKB_KEY_Scroll_Lock});
    const auto layout = xkb_state_serialize_layout(state.get(), XKB_STATE_LAYOUT_EFFECTIVE);
    const xkb_keycode_t key = keyForB(keymap.get(), layout);
    if (!super || key == XKB_KEYCODE_INVALID)
        return std::nullopt;
    X11Shortcut shortcut;
    shortcut.key = std::uint8_t(key);
    shortcut.modifiers = super | XCB_MOD_MASK_SHIFT;
    shortcut.locks = (locks | XCB_MOD_MASK_LOCK) & ~shortcut.modifiers;
    return shortcut;
}

} // namespace Veilshot
