#pragma once

#include <QString>
#include <QUrl>
#include <variant>

namespace Veilshot {

/// Nothing to show.
struct UpdatesIdle {};
/// The user has asked and waits for the answer.
struct CheckingForUpdates {};
struct UpToDate {};
/// Verified: version, notes and page are those that were signed.
struct UpdateFound {
    QString version;
    /// Plain text, possibly empty.
    QString notes;
    /// The https address to open in a browser.
    QUrl page;
};
struct UpdateCheckFailed {
    /// For the user.
    QString message;
};

/// What is to be shown of a check.
using UpdateState = std::variant<UpdatesIdle, CheckingForUpdates, UpToDate, UpdateFound, UpdateCheckFailed>;

} // namespace Veilshot
