#pragma once

#include <QString>

#include <map>
#include <set>

namespace vantrel::report {

/// Which metrics are broken down by which subsection. Remembers the subsections that were found, so
/// that looking for missing ones takes time by what has changed and not by all that is there.
class BreakdownIndex {
public:
    /// Notes the metric at a position; an empty id stands for no breakdown.
    void insert(const QString& subsection, int position)
    {
        if (subsection.isEmpty())
            return;
        metrics[subsection].insert(position);
        unchecked.insert(subsection);
    }

    void remove(const QString& subsection, int position)
    {
        const auto found = metrics.find(subsection);
        if (found == metrics.end())
            return;
        found->second.erase(position);
        if (found->second.empty()) {
            metrics.erase(found);
            unchecked.erase(subsection);
        }
    }

    /// Forgets which subsections were found.
    void forgetFound()
    {
        for (const auto& entry : metrics)
            unchecked.insert(entry.first);
    }

    /// Position of the first metric whose subsection doesn't exist, or -1.
    template <typename Exists>
    int findMissing(const Exists& exists)
    {
        int first = -1;
        for (auto id = unchecked.begin(); id != unchecked.end();) {
            if (exists(*id)) {
                id = unchecked.erase(id);
                continue;
            }
            const int position = *metrics[*id].begin();
            if (first < 0 || position < first)
                first = position;
            ++id;
        }
        return first;
    }

private:
    std::map<QString, std::set<int>> metrics; ///< positions by subsection, none of them empty
    std::set<QString> unchecked;
};

} // namespace vantrel::report
