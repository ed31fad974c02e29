#pragma once

#include <QHash>
#include <QPair>
#include <QString>
#include <QVector>

namespace vantrel::report {

/// The dotted metric ids of a definition as a tree of their parts. Tells which earlier id claims a
/// place that a new id needs, in the time that it takes to read the new id.
class MetricIdTree {
public:
    MetricIdTree() : nodes(1) {}

    /// Adds the id at the end of the list of metrics.
    void append(const QString& id);
    void clear() { *this = MetricIdTree(); }

    /// Position of the first id of which one is a part-wise prefix of the other, or -1.
    int firstCollision(const QString& id) const;
    /// Position of the first id that has an empty part, or -1.
    int firstWithEmptyPart() const { return emptyPartPosition; }

    static bool hasEmptyPart(const QString& id);

private:
    struct Node {
        int firstThrough = -1; ///< first id whose parts lead through here
        int firstEnding = -1;  ///< first id that ends here
    };

    QVector<Node> nodes;
    QHash<QPair<int, QString>, int> children;
    int count = 0;
    int emptyPartPosition = -1;
};

} // namespace vantrel::report
