#pragma once

#include <QFutureWatcher>
#include <QObject>

namespace Veilshot {

/// Calls `receive` with the future's result, once, in the thread of `context` and from its event loop, also
/// when the result is there already. Not at all if the future was cancelled or `context` is gone by then.
/// QFuture::then with a context is not used because before Qt 6.7 it does not survive a context that ends in
/// one thread while the future finishes in another.
template<typename Result, typename Receive>
void whenDone(const QFuture<Result>& future, QObject* context, Receive receive) {
    auto* watcher = new QFutureWatcher<Result>(context);
    QObject::connect(watcher, &QFutureWatcherBase::finished, context,
                     [watcher, receive = std::move(receive)] {
                         watcher->deleteLater();
                         if (!watcher->isCanceled())
                             receive(watcher->result());
                     });
    watcher->setFuture(future);
}

} // namespace Veilshot
