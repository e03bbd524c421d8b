#include "Veilshot/Platform/HotKeyBackEnd.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

TEST(HotKeyBackEnd, IsTheOneThatSeesTheKeyboard) {
    using enum HotKeyBackEnd;
    const struct {
        HotKeyEnvironment environment;
        HotKeyBackEnd expected;
    } desktops[] = {
        {{u"xcb"_s, u"x11"_s, {}, true}, x11},
        {{u"xcb"_s, {}, {}, true}, x11},
        {{u"xcb"_s, u"x11"_s, {}, false}, portal},
        {{u"xcb"_s, u"wayland"_s, {}, true}, portal},
        {{u"xcb"_s, {}, u"wayland-0"_s, true}, portal},
        {{u"wayland-egl"_s, u"wayland"_s, u"wayland-0"_s, false}, portal},
        {{u"offscreen"_s, u"wayland"_s, u"wayland-0"_s, true}, none},
    };
    for (const auto& [environment, expected] : desktops)
        EXPECT_EQ(hotKeyBackEndFor(environment), expected)
            << environment.platform.toStdString() << ", " << environment.sessionType.toStdString();
}

} // namespace
} // namespace Veilshot
