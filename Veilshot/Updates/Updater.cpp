#include "Veilshot/Updates/Updater.h"

#include "Veilshot/Updates/Appcast.h"
#include "Veilshot/Updates/FeedDownload.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot {

Updater::Updater(std::optional<UpdateConfiguration> configuration, UpdateSchedule schedule, Limits limits,
                 QObject* parent)
    : QObject(parent), m_configuration(std::move(configuration)), m_schedule(std::move(schedule)),
      m_limits(limits) {
    m_lookTimer.callOnTimeout(this, &Updater::checkIfDue);
}

Updater::Updater(std::optional<UpdateConfiguration> configuration, UpdateSchedule schedule, QObject* parent)
    : Updater(std::move(configuration), std::move(schedule), Limits(), parent) {}

Updater::~Updater() = default;

void Updater::start() {
    if (!m_configuration || m_isStarted)
        return;
    m_isStarted = true;
    m_lookTimer.start(m_limits.lookInterval);
    change(UpdatesIdle());
    checkIfDue();
}

void Updater::checkForUpdates() {
    if (m_canCheckForUpdates)
        check(Initiator::user);
}

void Updater::cancel() {
    if (!std::holds_alternative<CheckingForUpdates>(m_state))
        return;
    endDownload();
    change(UpdatesIdle());
}

void Updater::dismiss() {
    if (!std::holds_alternative<CheckingForUpdates>(m_state))
        change(UpdatesIdle());
}

void Updater::checkIfDue() {
    if (m_canCheckForUpdates && m_schedule.isDue())
        check(Initiator::schedule);
}

void Updater::check(Initiator initiator) {
    // Before it is known how it ends: a server in trouble is not to be asked every hour.
    m_schedule.setLastCheck(m_schedule.now());
    m_download = std::make_unique<FeedDownload>(
        m_configuration->feed, "Veilshot/" + m_configuration->installed.text().toLatin1(),
        FeedDownload::Limits{m_limits.feedBytes, m_limits.downloadDuration});
    connect(m_download.get(), &FeedDownload::received, this,
            [this, initiator](const QByteArray& body) { finish(initiator, examine(body)); });
    connect(m_download.get(), &FeedDownload::failed, this,
            [this, initiator](const QString& message) { finish(initiator, UpdateCheckFailed{message}); });
    if (initiator == Initiator::user)
        change(CheckingForUpdates());
    else
        change(UpdatesIdle());
}

void Updater::finish(Initiator initiator, UpdateState result) {
    endDownload();
    const bool isShown = initiator == Initiator::user || std::holds_alternative<UpdateFound>(result);
    change(isShown ? std::move(result) : UpdatesIdle());
}

void Updater::endDownload() {
    // It may be the one that is telling us of its end.
    m_download->disconnect(this);
    m_download.release()->deleteLater();
}

void Updater::change(UpdateState state) {
    const bool isIdle = std::holds_alternative<UpdatesIdle>(state);
    const bool isNew = !isIdle || !std::holds_alternative<UpdatesIdle>(m_state);
    m_state = std::move(state);
    const bool canCheck = m_isStarted && !m_download && isIdle;
    const bool isOtherwise = canCheck != m_canCheckForUpdates;
    m_canCheckForUpdates = canCheck;
    if (isNew)
        Q_EMIT stateChanged();
    if (isOtherwise)
        Q_EMIT canCheckForUpdatesChanged();
}

UpdateState Updater::examine(const QByteArray& feed) const {
    const auto appcast = Appcast::parse(feed);
    if (!appcast)
        return UpdateCheckFailed{u"The update server’s answer couldn’t be read."_s};
    const auto newest = std::ranges::max_element(appcast->releases, {}, &Release::version);
    if (newest == appcast->releases.end() || newest->version <= m_configuration->installed)
        return UpToDate();
    // An older one that can be verified would not do: it would hide that something is wrong.
    if (!m_configuration->key.verifies(newest->signature, newest->statement()))
        return UpdateCheckFailed{
            u"A newer version is announced, but its signature is wrong. It may not be genuine."_s};
    const auto page = newest->page();
    if (!page)
        return UpdateCheckFailed{u"A newer version is announced, but its download page isn’t secure."_s};
    return UpdateFound{newest->version.text(), newest->notes, *page};
}

} // namespace Veilshot
