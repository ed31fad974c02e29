#pragma once

#include <QString>

namespace vantrel {

/// Where the installation's files are. One object a process; its root is empty until the embedding
/// program sets it.
///
/// instance() can be called from any thread. The setters are for start-up, before others read.
class InstallationPaths {
public:
    /// The process's object, made at the first call; null once the process has destroyed it at
    /// exit.
    static InstallationPaths* instance();

    /// Sets the root and the directories below it. Each that doesn't exist gives a Qt warning and
    /// is set all the same.
    void setRoot(const QString& dir);
    /// Sets the root to the directory above the running program's. Needs a QCoreApplication.
    void setRootFromApplication();
    /// Sets the root and its directories all to @p dir: the form for a flat layout.
    void setAllDirectories(const QString& dir);
    void setConfigDirName(const QString& name) { configName = name; }
    void setFlags(int value) { flagBits = value; }

    QString root() const { return directories.root; }
    QString binDir() const { return directories.bin; }
    QString libDir() const { return directories.lib; }
    QString libexecDir() const { return directories.libexec; }
    /// Name of the per-user configuration directory.
    QString configDirName() const { return configName; }
    QString resourceDir() const { return directories.resource; }
    QString iconsDir() const { return directories.icons; }
    /// Scratch directory: the environment option BG_TMPDIR, or "/tmp".
    QString backgroundTmpDir() const { return temporary; }
    /// A setting that is stored and handed back.
    int flags() const { return flagBits; }

private:
    InstallationPaths();

    static void destroy();

    struct Directories {
        QString root;
        QString bin;
        QString lib;
        QString libexec;
        QString resource;
        QString icons;
    };

    Directories directories;
    QString configName;
    QString temporary;
    int flagBits = 0;
};

} // namespace vantrel
