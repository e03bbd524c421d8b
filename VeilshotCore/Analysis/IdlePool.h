#pragma once

#include <memory>
#include <mutex>
#include <vector>

namespace Veilshot {

/// Things that are dear to make and serve one thread at a time, waiting for the next thread that needs one.
/// May be used from several threads.
template<typename Thing>
class IdlePool {
public:
    /// An idle one, or nothing: then the caller makes one and gives it back afterwards.
    std::unique_ptr<Thing> take() {
        const std::lock_guard lock(m_mutex);
        if (m_idle.empty())
            return nullptr;
        auto thing = std::move(m_idle.back());
        m_idle.pop_back();
        return thing;
    }

    void giveBack(std::unique_ptr<Thing> thing) {
        const std::lock_guard lock(m_mutex);
        m_idle.push_back(std::move(thing));
    }

private:
    std::mutex m_mutex;
    std::vector<std::unique_ptr<Thing>> m_idle;
};

} // namespace Veilshot
