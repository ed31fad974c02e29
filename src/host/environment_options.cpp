#include "host/environment_options.h"

#include <QByteArray>

#include <algorithm>
#include <iterator>
#include <optional>

namespace vantrel {

namespace {

constexpr const char* prefixes[] = {"ODRIN_", "PELLAM_", "CORVANE_"};
constexpr const char* wordsForFalse[] = {"no", "off", "disable", "disabled", "0"};

std::optional<QByteArray> findOption(const char* stem)
{
    for (const char* prefix : prefixes) {
        const QByteArray name = QByteArray(prefix) + stem;
        if (qEnvironmentVariableIsSet(name.constData()))
            return qgetenv(name.constData());
    }
    return std::nullopt;
}

} // namespace

QString textOption(const char* stem, const QString& fallback)
{
    const std::optional<QByteArray> text = findOption(stem);
    return text ? QString::fromLocal8Bit(*text) : fallback;
}

bool booleanOption(const char* stem)
{
    const std::optional<QByteArray> text = findOption(stem);
    return text && std::none_of(std::begin(wordsForFalse), std::end(wordsForFalse),
                                [&](const char* word) { return qstricmp(*text, word) == 0; });
}

} // namespace vantrel
