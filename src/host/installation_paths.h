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
    void setConfigDirName(const QString& name) { m_configDirName = name; }
    void setFlags(int value) { m_flags = value; }

    QString root() const { return m_root; }
    QString binDir() const { return m_binDir; }
    QString libDir() const { return m_libDir; }
    QString libexecDir() const { return m_libexecDir; }
    /// Name of the per-user configuration directory.
    QString configDirName() const { return m_configDirName; }
    QString resourceDir() const { return m_resourceDir; }
    QString iconsDir() const { return m_iconsDir; }
    /// Scratch directory: the environment option BG_TMPDIR, or "/tmp".
    QString backgroundTmpDir() const { return m_backgroundTmpDir; }
    /// A setting that is stored and handed back.
    int flags() const { return m_flags; }

private:
    InstallationPaths();

    static void destroy();

    QString m_root;
    QString m_binDir;
    QString m_libDir;
    QString m_libexecDir;
    QString m_configDirName;
    QString m_resourceDir;
    QString m_iconsDir;
    QString m_backgroundTmpDir;
    int m_flags = 0;
};

} // namespace vantrel
