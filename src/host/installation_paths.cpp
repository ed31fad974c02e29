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

InstallationPaths::InstallationPaths()
    : m_backgroundTmpDir(textOption("BG_TMPDIR", QStringLiteral("/tmp")))
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
    m_root = dir;
    m_binDir = below.filePath(QStringLiteral("bin"));
    m_libDir = below.filePath(QStringLiteral("lib"));
    m_libexecDir = below.filePath(QStringLiteral("libexec"));
    m_resourceDir = below.filePath(QStringLiteral("resource"));
    m_iconsDir = below.filePath(QStringLiteral("icons"));
    for (const QString& path :
         {m_root, m_binDir, m_libDir, m_libexecDir, m_resourceDir, m_iconsDir}) {
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
    m_configDirName = QStringLiteral(".corvane");
}

void InstallationPaths::setAllDirectories(const QString& dir)
{
    for (QString* path :
         {&m_root, &m_binDir, &m_libDir, &m_libexecDir, &m_resourceDir, &m_iconsDir})
        *path = dir;
}

} // namespace vantrel
