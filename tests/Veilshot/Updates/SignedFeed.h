#pragma once

#include "Veilshot/Updates/PublicKey.h"

#include <QByteArray>

/// Feeds as they are published, signed with a key of the tests.
namespace Veilshot::SignedFeed {

PublicKey publicKey();

struct Entry {
    QByteArray version = "1.5.0";
    QByteArray link = "https://example.org/1.5.0";
    QByteArray notes = "Fewer areas are missed.";
};

QByteArray signature(const Entry& entry);
/// An item with the signature that belongs to the entry, or another.
QByteArray item(const Entry& entry);
QByteArray item(const Entry& entry, const QByteArray& signature);
QByteArray feed(const QByteArray& items);

} // namespace Veilshot::SignedFeed
