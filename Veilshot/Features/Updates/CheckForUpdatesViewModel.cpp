#include "Veilshot/Features/Updates/CheckForUpdatesViewModel.h"

#include "Veilshot/Updates/Updater.h"

using namespace Qt::StringLiterals;

namespace Veilshot {

CheckForUpdatesViewModel::CheckForUpdatesViewModel(Updater& updater, const QString& installedVersion,
                                                   PageOpener openPage, QObject* parent)
    : QObject(parent), m_updater(updater), m_installedVersion(installedVersion),
      m_openPage(std::move(openPage)) {
    connect(&updater, &Updater::canCheckForUpdatesChanged, this,
            &CheckForUpdatesViewModel::canCheckForUpdatesChanged);
    connect(&updater, &Updater::stateChanged, this, [this] {
        m_couldNotOpenPage = false;
        Q_EMIT changed();
    });
}

bool CheckForUpdatesViewModel::canCheckForUpdates() const {
    return m_updater.canCheckForUpdates();
}

CheckForUpdatesViewModel::Stage CheckForUpdatesViewModel::stage() const {
    const UpdateState& state = m_updater.state();
    if (std::holds_alternative<CheckingForUpdates>(state))
        return Checking;
    if (std::holds_alternative<Veilshot::UpToDate>(state))
        return UpToDate;
    if (std::holds_alternative<Veilshot::UpdateFound>(state))
        return UpdateFound;
    if (std::holds_alternative<UpdateCheckFailed>(state))
        return Failed;
    return None;
}

QString CheckForUpdatesViewModel::title() const {
    switch (stage()) {
    case None:
        return {};
    case Checking:
        return u"Checking for updates…"_s;
    case UpToDate:
        return u"You’re up to date"_s;
    case UpdateFound:
        return u"A new version of Veilshot is available"_s;
    case Failed:
        return u"Couldn’t check for updates"_s;
    }
    return {};
}

QString CheckForUpdatesViewModel::message() const {
    const UpdateState& state = m_updater.state();
    if (std::holds_alternative<Veilshot::UpToDate>(state))
        return u"Veilshot %1 is the latest version."_s.arg(m_installedVersion);
    if (const auto* failure = std::get_if<UpdateCheckFailed>(&state))
        return failure->message;
    if (const auto* found = std::get_if<Veilshot::UpdateFound>(&state)) {
        if (m_couldNotOpenPage)
            return u"The download page couldn’t be opened. It is at %1"_s.arg(found->page.toString());
        return u"You can get Veilshot %1 now. You have %2."_s.arg(found->version, m_installedVersion);
    }
    return {};
}

QString CheckForUpdatesViewModel::notes() const {
    const auto* const found = std::get_if<Veilshot::UpdateFound>(&m_updater.state());
    return found ? found->notes : QString();
}

void CheckForUpdatesViewModel::checkForUpdates() {
    m_updater.checkForUpdates();
}

void CheckForUpdatesViewModel::close() {
    m_updater.cancel();
    m_updater.dismiss();
}

void CheckForUpdatesViewModel::openDownloadPage() {
    const auto* const found = std::get_if<Veilshot::UpdateFound>(&m_updater.state());
    if (!found)
        return;
    if (m_openPage(found->page)) {
        close();
    } else {
        m_couldNotOpenPage = true;
        Q_EMIT changed();
    }
}

} // namespace Veilshot
