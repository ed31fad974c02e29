#include "tool/result_output.h"

#include "tool/findings.h"

#include <QSaveFile>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace vantrel::tool {

namespace {

ExitCode fail(const QString& path, const QString& reason)
{
    printFindings({fileError(path, QStringLiteral("can't be written: %1").arg(reason))});
    return FileTrouble;
}

} // namespace

ExitCode writeResult(const QString& path, const QByteArray& bytes)
{
    if (path.isEmpty()) {
        const auto size = std::size_t(bytes.size());
        if (std::fwrite(bytes.constData(), 1, size, stdout) != size || std::fflush(stdout) != 0)
            return fail(QStringLiteral("(standard output)"),
                        QString::fromLocal8Bit(std::strerror(errno)));
        return Done;
    }
    QSaveFile file(path);
    // What isn't a regular file, such as a pipe, can't be replaced, so it is written to.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return fail(path, file.errorString());
    return Done;
}

} // namespace vantrel::tool
