#include "Veilshot/App/CommandLine.h"

#include <CLI/CLI.hpp>
#include <QCoreApplication>
#include <sstream>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// The strengths that still make a difference. Below, text stays readable at once; above, cells and halos are
/// wider than any line of text.
constexpr double leastIntensity = 1;
constexpr double greatestIntensity = 1000;

/// The arguments as CLI11 takes them, before they are checked against each other.
struct Arguments {
    std::vector<std::string> images;
    std::string output;
    std::string outputDirectory;
    std::string style = "smooth";
    double intensity = 18;
    std::vector<std::string> only;
    std::vector<std::string> except;
    std::string regionsFile;
    bool json = false;
};

std::vector<std::string> kindNames() {
    std::vector<std::string> names;
    for (const SensitiveKind kind : allSensitiveKinds)
        names.push_back(rawValue(kind).toStdString());
    return names;
}

/// Not CLI::Range, which lets "nan" pass: a blur of that strength would hide nothing.
std::string intensityMistake(const std::string& text) {
    bool isNumber = false;
    const double value = QString::fromStdString(text).toDouble(&isNumber);
    if (isNumber && value >= leastIntensity && value <= greatestIntensity)
        return {};
    return "must be a number from " + std::to_string(int(leastIntensity)) + " to " +
           std::to_string(int(greatestIntensity));
}

std::vector<std::string> styleNames() {
    std::vector<std::string> names;
    for (const RedactionStyle style : allRedactionStyles)
        names.push_back(rawValue(style).toStdString());
    return names;
}

void addCommonOptions(CLI::App& command, Arguments& arguments) {
    command.add_option("IMAGE", arguments.images, "Image files to scan; \"-\" reads standard input")
        ->required()
        ->type_name("");
    command
        .add_option("--only", arguments.only,
                    "Look only for these kinds: address, custom, email, identity, name, payment, person, "
                    "phone, secret, web")
        ->delimiter(',')
        ->check(CLI::IsMember(kindNames()).description(""))
        ->type_name("KIND,...")
        ->allow_extra_args(false);
    command.add_option("--except", arguments.except, "Leave these kinds as they are")
        ->delimiter(',')
        ->check(CLI::IsMember(kindNames()).description(""))
        ->type_name("KIND,...")
        ->allow_extra_args(false);
    command
        .add_option("--regions", arguments.regionsFile,
                    "JSON file with further areas to hide, kept unless --except custom")
        ->type_name("FILE.json");
    command.add_flag("--json", arguments.json, "Report what was found on standard output");
}

QStringList toStrings(const std::vector<std::string>& texts) {
    QStringList strings;
    for (const std::string& text : texts)
        strings.push_back(QString::fromStdString(text));
    return strings;
}

/// Areas given by hand were asked for by name, so --only does not drop them.
std::set<SensitiveKind> selectedKinds(const Arguments& arguments) {
    std::set<SensitiveKind> kinds;
    const auto contains = [](const std::vector<std::string>& names, SensitiveKind kind) {
        return std::ranges::find(names, rawValue(kind).toStdString()) != names.end();
    };
    for (const SensitiveKind kind : allSensitiveKinds) {
        const bool isWanted =
            arguments.only.empty() || kind == SensitiveKind::custom || contains(arguments.only, kind);
        if (isWanted && !contains(arguments.except, kind))
            kinds.insert(kind);
    }
    return kinds;
}

/// Many programs are told with "--json -" to report on standard output. Such a dash is an image only where
/// there is no other, as in "detect --json - < shot.png".
void dropReportTarget(QStringList& images, const QStringList& arguments) {
    const qsizetype dash = arguments.indexOf(u"--json"_s) + 1;
    if (dash > 0 && dash < arguments.size() && arguments[dash] == standardStream && images.size() > 1)
        images.removeAt(images.lastIndexOf(standardStream));
}

/// Why the arguments do not go together, or an empty text.
QString contradiction(const ScanRequest& request) {
    if (request.images.count(standardStream) > 1)
        return u"Standard input (-) can be read only once."_s;
    if (request.action == ScanRequest::Action::detect)
        return {};
    if (request.output.isEmpty() == request.outputDirectory.isEmpty())
        return u"Say where the result goes: either -o FILE or --output-dir DIRECTORY."_s;
    if (!request.output.isEmpty() && request.images.size() > 1)
        return u"-o takes the result of one image; use --output-dir for several."_s;
    if (request.output == standardStream && request.isJsonReportWanted)
        return u"Standard output cannot take both the image (-o -) and the report (--json)."_s;
    return {};
}

} // namespace

std::variant<WindowRequest, ScanRequest, CommandLineAnswer> parseCommandLine(const QStringList& arguments) {
    CLI::App app("Veilshot makes screenshots safe to share: it finds personal details and hides them.",
                 "veilshot");
    app.set_version_flag("--version", "veilshot " + QCoreApplication::applicationVersion().toStdString());
    app.require_subcommand(0, 1);
    std::string image;
    app.add_option("IMAGE", image, "Image to open in the window")->type_name("");
    bool isQuickPaste = false;
    app.add_flag("--quick-paste", isQuickPaste,
                 "Open the quick-paste panel (for a key that the desktop binds)");
    bool isActivated = false;
    app.add_flag("--activated", isActivated,
                 "Wait for what the desktop says over D-Bus (for its service file)");
    app.get_formatter()->column_width(34);

    Arguments parsed;
    CLI::App* protect = app.add_subcommand("protect", "Write protected copies of images as PNG files");
    addCommonOptions(*protect, parsed);
    protect->add_option("-o,--output", parsed.output, "The PNG file to write; \"-\" writes standard output")
        ->type_name("FILE");
    protect
        ->add_option("--output-dir", parsed.outputDirectory,
                     "Where to write several results, each named like its image with the ending .png")
        ->type_name("DIRECTORY");
    protect
        ->add_option(
            "--style", parsed.style,
            "How to hide: smooth, pixelate or blackout. Only blackout leaves nothing of what it hides")
        ->check(CLI::IsMember(styleNames()).description(""))
        ->type_name("STYLE")
        ->capture_default_str();
    protect
        ->add_option("--intensity", parsed.intensity,
                     "Blur radius or cell size in pixels of the image, 1 to 1000; blackout has none")
        ->check(intensityMistake)
        ->type_name("N")
        ->capture_default_str();
    CLI::App* detect = app.add_subcommand("detect", "Only report what would be hidden");
    addCommonOptions(*detect, parsed);

    std::vector<std::string> texts;
    for (const QString& argument : arguments.mid(1))
        texts.insert(texts.begin(), argument.toStdString()); // CLI11 takes them from the back
    try {
        app.parse(texts);
    } catch (const CLI::ParseError& error) {
        std::ostringstream out;
        std::ostringstream errors;
        const int code = app.exit(error, out, errors);
        const QString text = QString::fromStdString(out.str() + errors.str()).trimmed();
        return CommandLineAnswer{text, code == 0 ? exitDone : exitWrongUsage};
    }

    const bool isCommand = protect->parsed() || detect->parsed();
    if (isQuickPaste + isActivated + isCommand + !image.empty() > 1 && (isQuickPaste || isActivated))
        return CommandLineAnswer{u"%1 stands alone"_s.arg(isQuickPaste ? u"--quick-paste" : u"--activated"),
                                 exitWrongUsage};
    if (!isCommand) {
        using Action = WindowRequest::Action;
        return WindowRequest{isQuickPaste    ? Action::quickPaste
                             : isActivated   ? Action::nothingYet
                             : image.empty() ? Action::show
                                             : Action::openImage,
                             QString::fromStdString(image)};
    }
    if (!image.empty())
        return CommandLineAnswer{u"%1: an image comes after the command"_s.arg(QString::fromStdString(image)),
                                 exitWrongUsage};
    ScanRequest request;
    request.action = protect->parsed() ? ScanRequest::Action::protect : ScanRequest::Action::detect;
    request.images = toStrings(parsed.images);
    dropReportTarget(request.images, arguments);
    request.output = QString::fromStdString(parsed.output);
    request.outputDirectory = QString::fromStdString(parsed.outputDirectory);
    request.style = redactionStyleFromRawValue(QString::fromStdString(parsed.style)).value();
    request.intensity = parsed.intensity;
    request.kinds = selectedKinds(parsed);
    request.regionsFile = QString::fromStdString(parsed.regionsFile);
    request.isJsonReportWanted = parsed.json;
    if (const QString mistake = contradiction(request); !mistake.isEmpty())
        return CommandLineAnswer{mistake, exitWrongUsage};
    return request;
}

} // namespace Veilshot
