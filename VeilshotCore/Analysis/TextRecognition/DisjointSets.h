#pragma once

#include <vector>

namespace Veilshot {

/// Union-find over indices from 0; the representative of a set is its smallest index.
class DisjointSets {
public:
    explicit DisjointSets(int count = 0) {
        m_parents.reserve(count);
        for (int index = 0; index < count; ++index)
            add();
    }

    int add() {
        m_parents.push_back(static_cast<int>(m_parents.size()));
        return m_parents.back();
    }

    int find(int index) {
        while (m_parents[index] != index) {
            m_parents[index] = m_parents[m_parents[index]];
            index = m_parents[index];
        }
        return index;
    }

    void join(int first, int second) {
        first = find(first);
        second = find(second);
        if (first < second)
            m_parents[second] = first;
        else
            m_parents[first] = second;
    }

    int size() const { return static_cast<int>(m_parents.size()); }

private:
    std::vector<int> m_parents;
};

} // namespace Veilshot
