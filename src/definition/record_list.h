#pragma once

#include <QHash>
#include <QList>
#include <QString>

namespace vantrel::report {

/// Records in the order in which they were added, found by id without a walk. Of records with
/// equal ids the first is found.
template <typename Record>
class RecordList {
public:
    void append(const Record& record)
    {
        if (!positions.contains(record.id))
            positions.insert(record.id, records.size());
        records.append(record);
    }

    void replaceAll(const QList<Record>& list)
    {
        clear();
        for (const Record& record : list)
            append(record);
    }

    void clear()
    {
        records.clear();
        positions.clear();
    }

    /// Position of the record, or -1.
    int indexOf(const QString& id) const { return positions.value(id, -1); }
    bool contains(const QString& id) const { return positions.contains(id); }
    /// The record, for changes to all but its id; null if there is none.
    Record* find(const QString& id)
    {
        const int position = indexOf(id);
        return position < 0 ? nullptr : &records[position];
    }
    /// A copy of the record, or a default one.
    Record value(const QString& id) const { return records.value(indexOf(id)); }
    const QList<Record>& all() const { return records; }
    bool isEmpty() const { return records.isEmpty(); }

private:
    QList<Record> records;
    QHash<QString, int> positions;
};

} // namespace vantrel::report
