#pragma once

#include <QByteArray>
#include <QFuture>
#include <QImage>
#include <QString>
#include <QStringList>
#include <memory>
#include <variant>
#include <vector>

class QMimeData;

namespace Veilshot {

/// One item of a drop or of the clipboard, and the forms in which it can be had.
///
/// The main thread asks; what it asks for may arrive later. An item is good for as long as the data that it
/// was made from: until the drop or the look at the clipboard is over. What was asked for by then still
/// arrives.
class ItemProvider {
public:
    virtual ~ItemProvider() = default;

    /// The picture itself, already decoded in this process, as opposed to data to decode; null if there is
    /// none.
    virtual QImage image() const = 0;
    /// The MIME types of the data on offer, best first.
    virtual QStringList registeredTypes() const = 0;

    /// The data, or why there is none, in a sentence for people.
    using Data = std::variant<QByteArray, QString>;
    /// The data of one of the registered types. The future always has a result.
    virtual QFuture<Data> loadData(const QString& type) const = 0;
};

using ItemProviders = std::vector<std::unique_ptr<ItemProvider>>;

/// What the data holds: first the data itself as one item, then each local file that it names.
/// `data` must outlive the items.
ItemProviders itemProviders(const QMimeData& data);

} // namespace Veilshot
