#include "tool/near_name.h"

#include <algorithm>
#include <vector>

namespace vantrel::tool {

namespace {

/// Longer names aren't compared: the effort grows with the product of the lengths.
constexpr int maxLength = 200;

/// How many letters have to be put in, taken out, replaced or swapped with their neighbour.
int distance(const QString& a, const QString& b)
{
    std::vector<int> beforeLast(std::size_t(b.size()) + 1);
    std::vector<int> last(beforeLast);
    std::vector<int> row(beforeLast);
    for (std::size_t j = 0; j < row.size(); ++j)
        row[j] = int(j);
    for (int i = 1; i <= a.size(); ++i) {
        beforeLast.swap(last);
        last.swap(row);
        row[0] = i;
        for (int j = 1; j <= b.size(); ++j) {
            const auto at = std::size_t(j);
            const int replaced = last[at - 1] + (a.at(i - 1) == b.at(j - 1) ? 0 : 1);
            row[at] = std::min({replaced, last[at] + 1, row[at - 1] + 1});
            if (i > 1 && j > 1 && a.at(i - 1) == b.at(j - 2) && a.at(i - 2) == b.at(j - 1))
                row[at] = std::min(row[at], beforeLast[at - 2] + 1);
        }
    }
    return row.back();
}

/// Two names that differ in this much aren't each other's misspelling.
int tolerance(const QString& name)
{
    return name.size() < 3 ? 0 : std::max(1, name.size() / 3);
}

} // namespace

QString nearName(const QString& name, const QStringList& known)
{
    const QString folded = name.toLower();
    QString nearest;
    int least = tolerance(name) + 1;
    for (const QString& candidate : known) {
        if (std::max(candidate.size(), name.size()) > maxLength ||
            std::abs(candidate.size() - name.size()) >= least || candidate.isEmpty())
            continue;
        const int difference = distance(folded, candidate.toLower());
        if (difference < least) {
            least = difference;
            nearest = candidate;
        }
    }
    return nearest;
}

} // namespace vantrel::tool
