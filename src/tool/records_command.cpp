// Metric data files as flat records, one value a line, under the names that all tools share.
#include "metrics/metric_store.h"
#include "metrics/quantities/scaled_quantity.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/findings.h"
#include "tool/result_output.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <optional>

namespace vantrel::tool {

namespace {

struct RecordsOptions {
    std::vector<std::string> files;
    std::string format = "table";
};

constexpr const char* columns[] = {"file", "id", "value", "units", "displayName"};
constexpr std::size_t columnCount = std::size(columns);
constexpr int shownDigits = 6;

/// A value in the units that suit it.
struct ShownRecord {
    QStringList texts; ///< in the order of the columns
    std::optional<double> number;
};

/// The number in a stored value, and how many of its digits count; none for other types.
std::optional<DoubleWithPrecision> numberIn(const QVariant& value)
{
    if (value.userType() == QMetaType::Double || value.userType() == QMetaType::Int)
        return DoubleWithPrecision{value.toDouble(), shownDigits};
    if (isDoubleWithPrecisionValue(value))
        return toDoubleWithPrecision(value);
    return std::nullopt;
}

ShownRecord shown(const QString& file, const MetricRecord& record, const QVariant& stored)
{
    ShownRecord result;
    QString value = record.value;
    QString units = record.units;
    if (const auto number = numberIn(stored)) {
        double factor = 1;
        if (!units.isEmpty() && std::isfinite(number->value))
            fitUnits(record.units, DynamicNumber(number->value), units, factor, NoSystem);
        if (factor != 1)
            value = QString::number(number->value / factor, 'g', number->precision);
        result.number = number->value / factor;
    }
    result.texts = QStringList{file, record.id, value, units, record.displayName};
    return result;
}

QByteArray csvField(const QString& text)
{
    QByteArray bytes = text.toUtf8();
    if (bytes.contains(',') || bytes.contains('"') || bytes.contains('\n') || bytes.contains('\r'))
        bytes = '"' + bytes.replace('"', "\"\"") + '"';
    return bytes;
}

QByteArray csvLine(const QStringList& texts)
{
    QByteArrayList fields;
    for (const QString& text : texts)
        fields.append(csvField(text));
    return fields.join(',') + '\n';
}

QByteArray jsonLine(const ShownRecord& record)
{
    QJsonObject object;
    for (std::size_t i = 0; i < columnCount; ++i)
        object.insert(QLatin1String(columns[i]), record.texts.at(int(i)));
    if (record.number) {
        object.insert(QStringLiteral("value"), std::isfinite(*record.number)
                                                   ? QJsonValue(*record.number)
                                                   : QJsonValue(QJsonValue::Null));
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QString inTable(const ShownRecord& record, std::size_t column)
{
    return record.texts.at(int(column)).simplified();
}

/// Columns as wide as the texts of one file, so that any number of files can follow each other.
QByteArray tableOf(const QList<ShownRecord>& records)
{
    int widths[columnCount] = {};
    for (const ShownRecord& record : records) {
        for (std::size_t i = 0; i < columnCount; ++i)
            widths[i] = qMax(widths[i], inTable(record, i).size());
    }
    QString table;
    for (const ShownRecord& record : records) {
        QString line;
        for (std::size_t i = 0; i < columnCount; ++i)
            line += inTable(record, i).leftJustified(widths[i] + 2);
        while (line.endsWith(u' '))
            line.chop(1);
        table += line + u'\n';
    }
    return table.toUtf8();
}

/// One of the forms in which records leave, file by file.
class RecordWriter {
public:
    explicit RecordWriter(const std::string& formatName) : format(formatName) {}

    QByteArray begin() const
    {
        if (format == "json")
            return "[";
        if (format != "csv")
            return QByteArray();
        QStringList names;
        for (const char* column : columns)
            names.append(QLatin1String(column));
        return csvLine(names);
    }

    QByteArray write(const QList<ShownRecord>& records)
    {
        if (format == "table")
            return tableOf(records);
        QByteArray bytes;
        for (const ShownRecord& record : records) {
            if (format == "csv")
                bytes += csvLine(record.texts);
            else if (format == "ndjson")
                bytes += jsonLine(record) + '\n';
            else
                bytes += (isFirst ? "\n" : ",\n") + jsonLine(record);
            isFirst = false;
        }
        return bytes;
    }

    QByteArray end() const { return format == "json" ? "\n]\n" : QByteArray(); }

private:
    std::string format;
    bool isFirst = true;
};

/// The records of one file; what is wrong with it is told.
ExitCode readRecords(const QString& path, QList<ShownRecord>* records)
{
    MetricStore store;
    QFile file(path);
    QString error;
    if (!store.readFile(file, &error)) {
        const QFileInfo info(path);
        const bool isReadable = info.isFile() && info.isReadable();
        printFindings({fileError(
            path, error.isEmpty() ? QStringLiteral("a declaration can't be used") : error)});
        return isReadable ? WrongInput : FileTrouble;
    }
    // All of them have a value, and both lists are in the order of ids.
    const QStringList ids = store.ids();
    const QList<MetricRecord> flat = store.metricRecords(ids);
    for (int i = 0; i < flat.size(); ++i)
        records->append(shown(path, flat.at(i), store.value(ids.at(i))));
    return Done;
}

/// A file that can't be used stops nothing.
ExitCode writeRecords(const RecordsOptions& options)
{
    RecordWriter writer(options.format);
    ExitCode worst = writeResult(QString(), writer.begin());
    for (const std::string& file : options.files) {
        if (worst == FileTrouble && std::ferror(stdout) != 0)
            return worst;
        QList<ShownRecord> records;
        worst = std::max(worst, readRecords(textFrom(file), &records));
        worst = std::max(worst, writeResult(QString(), writer.write(records)));
    }
    return std::max(worst, writeResult(QString(), writer.end()));
}

} // namespace

void addRecordsCommand(CLI::App& app, ExitCode* result)
{
    auto options = std::make_shared<RecordsOptions>();
    CLI::App* const command =
        app.add_subcommand("records", "Print the values of metric data files, one a line");
    command->add_option("FILE", options->files, "Metric data files")->required()->type_name("");
    command->add_option("--format", options->format, "Form: table, csv, json or ndjson")
        ->check(CLI::IsMember({"table", "csv", "json", "ndjson"}).description(""))
        ->type_name("FORM")
        ->capture_default_str();
    command->footer("Example:\n  vantrel records runs/*.json --format csv > runs.csv");
    command->callback([options, result] { *result = writeRecords(*options); });
}

} // namespace vantrel::tool
