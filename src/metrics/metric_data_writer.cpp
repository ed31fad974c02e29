// The JSON form of a metric store.
#include "metrics/metric_store.h"

#include <QJsonValue>

#include <cmath>
#include <deque>
#include <map>
#include <vector>

namespace vantrel {

namespace {

QJsonValue numberOrNull(double number)
{
    return std::isnan(number) ? QJsonValue(QJsonValue::Null) : QJsonValue(number);
}

QJsonValue valueToJson(MetricType type, const QVariant& value)
{
    switch (type) {
    case MetricType::String:
        return value.toString();
    case MetricType::Bool:
        return value.toBool();
    case MetricType::Integer:
        return value.toInt();
    case MetricType::Double:
        return numberOrNull(value.toDouble());
    case MetricType::DoubleWithPrecision: {
        const DoubleWithPrecision pair = toDoubleWithPrecision(value);
        return QJsonObject{{QStringLiteral("value"), numberOrNull(pair.value)},
                           {QStringLiteral("precision"), pair.precision}};
    }
    case MetricType::None:
        break;
    }
    return QJsonValue::Null;
}

QJsonObject definitionToJson(const MetricDefinition& definition)
{
    QJsonObject entry;
    entry.insert(QStringLiteral("value"), definition.valuePath);
    entry.insert(QStringLiteral("type"), metricTypeName(definition.type));
    if (!definition.units.isNull())
        entry.insert(QStringLiteral("units"), definition.units);
    if (!definition.displayName.isNull())
        entry.insert(QStringLiteral("displayName"), definition.displayName);
    if (definition.version != 0)
        entry.insert(QStringLiteral("version"), definition.version);
    return entry;
}

/// Values gathered along dotted paths, turned into JSON objects once all are there. Inserting into
/// nested QJsonObjects copies every object on the path each time.
class PathTree {
public:
    PathTree() : nodes(1) {}

    void insert(const QString& path, const QJsonValue& value)
    {
        Node* node = &nodes.front();
        int start = 0;
        for (int dot = path.indexOf(u'.'); dot >= 0; dot = path.indexOf(u'.', start)) {
            node = childObject(*node, path.mid(start, dot - start));
            start = dot + 1;
        }
        setLeaf(*childOf(*node, path.mid(start)), value);
    }

    /// Empties the tree. Nodes stand in the order of their making, children behind parents, so
    /// walking backwards completes every object before its parent without recursion.
    QJsonObject take()
    {
        for (auto node = nodes.rbegin(); node != nodes.rend(); ++node) {
            if (!node->isObject)
                continue;
            QJsonObject object;
            for (auto& [key, child] : node->children)
                object.insert(key, child->value);
            node->value = object;
        }
        return nodes.front().value.toObject();
    }

private:
    struct Node {
        QJsonValue value;
        bool isObject = true;
        std::map<QString, Node*> children;
    };

    Node* childOf(Node& parent, const QString& key)
    {
        Node*& child = parent.children[key];
        if (!child)
            child = &nodes.emplace_back();
        return child;
    }

    /// The object under @p key. What stands there and isn't an object gives way.
    Node* childObject(Node& parent, const QString& key)
    {
        Node* child = childOf(parent, key);
        child->isObject = true;
        return child;
    }

    void setLeaf(Node& node, const QJsonValue& value)
    {
        node.children.clear();
        node.isObject = value.isObject();
        node.value = value;
        const QJsonObject object = value.toObject();
        for (auto it = object.begin(); it != object.end(); ++it)
            setLeaf(*childOf(node, it.key()), it.value());
    }

    std::deque<Node> nodes;
};

} // namespace

QJsonObject MetricStore::toDataObject() const
{
    PathTree tree;
    for (auto it = values.constBegin(); it != values.constEnd(); ++it) {
        const MetricDefinition metric = definition(it.key());
        tree.insert(metric.valuePath, valueToJson(metric.type, it.value()));
    }
    return tree.take();
}

QJsonObject MetricStore::toMetricDataObject() const
{
    QJsonObject object;
    for (auto it = definitions.constBegin(); it != definitions.constEnd(); ++it)
        object.insert(it.key(), definitionToJson(it.value()));
    return object;
}

} // namespace vantrel
