#include "Veilshot/App/CommandLine.h"

#include <gmock/gmock.h>
#include <map>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

auto parse(const QString& arguments) {
    return parseCommandLine((u"veilshot "_s + arguments).split(u' '));
}

ScanRequest request(const QString& arguments) {
    const auto parsed = parse(arguments);
    if (const auto* answer = std::get_if<CommandLineAnswer>(&parsed)) {
        ADD_FAILURE() << answer->text.toStdString();
        return {};
    }
    return std::get<ScanRequest>(parsed);
}

TEST(CommandLine, ProtectsSmoothlyAtEighteenUnlessToldOtherwise) {
    const ScanRequest plain = request(u"protect a.png -o b.png"_s);
    EXPECT_EQ(plain.output, u"b.png");
    EXPECT_EQ(plain.style, RedactionStyle::smooth);
    EXPECT_EQ(plain.intensity, 18);
    EXPECT_EQ(plain.kinds.size(), 10u);

    const ScanRequest full = request(u"protect --style pixelate --intensity 24.5 --only name,email --json "
                                     u"--regions r.json --output-dir out a.png b.png"_s);
    EXPECT_EQ(full.images, (QStringList{u"a.png"_s, u"b.png"_s}));
    EXPECT_EQ(full.intensity, 24.5);
    EXPECT_EQ(full.outputDirectory, u"out");
    EXPECT_EQ(full.regionsFile, u"r.json");
}

TEST(CommandLine, OpensAWindowUnlessACommandIsNamed) {
    using Action = WindowRequest::Action;
    const auto action = [](const QString& arguments) {
        return std::get<WindowRequest>(parse(arguments)).action;
    };
    EXPECT_EQ(std::get<WindowRequest>(parseCommandLine({u"veilshot"_s})).action, Action::show);
    EXPECT_EQ(action(u"a.png"_s), Action::openImage);
    EXPECT_EQ(action(u"--quick-paste"_s), Action::quickPaste);
    EXPECT_EQ(action(u"--activated"_s), Action::nothingYet);
}

TEST(CommandLine, SelectsKinds) {
    using Kinds = std::set<SensitiveKind>;
    EXPECT_EQ(request(u"detect --only name,email a.png"_s).kinds,
              (Kinds{SensitiveKind::custom, SensitiveKind::email, SensitiveKind::name}));
    EXPECT_EQ(request(u"detect a.png --only name,email --except email,custom"_s).kinds,
              Kinds{SensitiveKind::name});
}

TEST(CommandLine, TakesTheStandardStreamsForFiles) {
    EXPECT_EQ(request(u"detect a.png --json -"_s).images, QStringList{u"a.png"_s});
    EXPECT_EQ(request(u"detect --only name --json -"_s).images, QStringList{u"-"_s});
    EXPECT_EQ(request(u"detect - --json -"_s).images, QStringList{u"-"_s});
}

TEST(CommandLine, RefusesMistakesWithExitCodeTwoAndNamesThem) {
    for (const auto& [arguments, named] : std::map<QString, QString>{
             {u"protect a.png"_s, u"-o FILE"_s},
             {u"protect a.png -o b.png --output-dir out"_s, u"--output-dir"_s},
             {u"protect a.png b.png -o c.png"_s, u"--output-dir"_s},
             {u"protect a.png -o - --json"_s, u"--json"_s},
             {u"protect - - --output-dir out"_s, u"Standard input"_s},
             {u"protect a.png -o b.png --style mosaic"_s, u"mosaic"_s},
             {u"protect a.png -o b.png --intensity 0"_s, u"intensity"_s},
             {u"protect a.png -o b.png --intensity nan"_s, u"intensity"_s},
             {u"detect a.png --only Email"_s, u"Email"_s},
             {u"detect"_s, u"IMAGE"_s},
             {u"inspect a.png"_s, u"a.png"_s},
             {u"--quick-paste a.png"_s, u"alone"_s},
             {u"--quick-paste detect a.png"_s, u"alone"_s},
             {u"--activated --quick-paste"_s, u"alone"_s},
         }) {
        const auto parsed = parse(arguments);
        const auto* answer = std::get_if<CommandLineAnswer>(&parsed);
        ASSERT_TRUE(answer) << arguments.toStdString();
        EXPECT_EQ(answer->exitCode, 2) << arguments.toStdString();
        EXPECT_TRUE(answer->text.contains(named)) << answer->text.toStdString();
    }
}

} // namespace
} // namespace Veilshot
