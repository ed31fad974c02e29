#include "definition/metric_id_tree.h"

#include <QStringList>

namespace vantrel::report {

namespace {

/// The smaller of two positions, of which -1 means none.
int earlier(int a, int b)
{
    if (a < 0 || b < 0)
        return qMax(a, b);
    return qMin(a, b);
}

} // namespace

bool MetricIdTree::hasEmptyPart(const QString& id)
{
    return id.isEmpty() || id.startsWith(u'.') || id.endsWith(u'.') ||
           id.contains(QLatin1String(".."));
}

void MetricIdTree::append(const QString& id)
{
    const int position = count++;
    if (emptyPartPosition < 0 && hasEmptyPart(id))
        emptyPartPosition = position;
    int node = 0;
    const QStringList parts = id.split(u'.');
    for (const QString& part : parts) {
        int& child = children[{node, part}];
        if (child == 0) {
            child = nodes.size();
            nodes.append(Node());
        }
        node = child;
        nodes[node].firstThrough = earlier(nodes[node].firstThrough, position);
    }
    nodes[node].firstEnding = earlier(nodes[node].firstEnding, position);
}

int MetricIdTree::firstCollision(const QString& id) const
{
    int node = 0;
    int found = -1;
    const QStringList parts = id.split(u'.');
    for (const QString& part : parts) {
        node = children.value({node, part});
        if (node == 0)
            return found;
        found = earlier(found, nodes[node].firstEnding);
    }
    return earlier(found, nodes[node].firstThrough);
}

} // namespace vantrel::report
