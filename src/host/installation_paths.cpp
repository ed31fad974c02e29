#include "host/installation_paths.h"

#include "host/environment_options.h"

#include <QCoreApplication>
#include <QDir>

#include <atomic>
#include <cstdlib>

namespace vantrel {

namespace {

std::atomic<InstallationPaths*> published{nullptr};

/// Stands in the place of the object once that is destroyed, so that none is made a second time.
InstallationPaths* destroyedMark()
{
    static char mark;
    return reinterpret_cast<InstallationPaths*>(&mark);
}

InstallationPaths* unlessDestroyed(InstallationPaths* paths)
{
    return paths == destroyedMark() ? nullptr : paths;
}

} // namespace

InstallationPaths::InstallationPaths() : temporary(textOption("BG_TMPDIR", QStringLiteral("/tmp")))
{}

InstallationPaths* InstallationPaths::instance()
{
    InstallationPaths* current = published.load();
    if (current)
        return unlessDestroyed(current);
    auto* made = new InstallationPaths;
    if (!published.compare_exchange_strong(current, made)) {
        delete made;
        return unlessDestroyed(current);
    }
    std::atexit(destroy);
    return made;
}

void InstallationPaths::destroy()
{
    delete published.exchange(destroyedMark());
}

void InstallationPaths::setRoot(const QString& dir)
{
    const QDir below(dir);
    directories = {dir,
                   below.filePath(QStringLiteral("bin")),
                   below.filePath(QStringLiteral("lib")),
                   below.filePath(QStringLiteral("libexec")),
                   below.filePath(QStringLiteral("resource")),
                   below.filePath(QStringLiteral("icons"))};
    for (const QString& path : {directories.root, directories.bin, directories.lib,
                                directories.libexec, directories.resource, directories.icons}) {
        if (!QDir(path).exists()) {
            qWarning("Unable to find directory '%s'.\nYour Corvane product installation may be "
                     "incomplete or corrupted.",
                     path.toLatin1().constData());
        }
    }
}

void InstallationPaths::setRootFromApplication()
{
    setRoot(QCoreApplication::applicationDirPath() + QLatin1String("/.."));
    configName = QStringLiteral(".corvane");
}

void InstallationPaths::setAllDirectories(const QString& dir)
{
    directories = {dir, dir, dir, dir, dir, dir};
}

} // namespace vantrel
