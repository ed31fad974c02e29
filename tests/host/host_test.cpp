#include "host/environment_options.h"
#include "host/installation_paths.h"
#include "host/path_string.h"
#include "warnings.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace vantrel;

namespace {

QStringList warningsOfRoot(const QString& root)
{
    return warningsOf([&] { InstallationPaths::instance()->setRoot(root); });
}

} // namespace

TEST(EnvironmentOptions, takeTheFirstPrefixThatIsSet)
{
    // What is set under each prefix, and the option as a text and as a boolean.
    const std::tuple<const char*, const char*, const char*, const char*, bool> rows[] = {
        {nullptr, nullptr, nullptr, "/tmp", false},
        {nullptr, "/a", "/b", "/a", true},
        {"", "/a", "/b", "", true},
        {"0", nullptr, "1", "0", false},
        {nullptr, "Off", "1", "Off", false},
        {nullptr, nullptr, "DISABLE", "DISABLE", false},
        {"disableD", "1", nullptr, "disableD", false},
        {"No", "", "", "No", false},
        {"0 ", nullptr, nullptr, "0 ", true},
        {"\xc3\xa9", nullptr, nullptr, "\xc3\xa9", true},
    };
    for (const auto& [odrin, pellam, corvane, text, boolean] : rows) {
        const std::pair<const char*, const char*> settings[] = {
            {"ODRIN_T", odrin}, {"PELLAM_T", pellam}, {"CORVANE_T", corvane}};
        for (const auto& [name, value] : settings)
            value ? setenv(name, value, 1) : unsetenv(name);
        EXPECT_EQ(textOption("T", "/tmp").toStdString(), text);
        EXPECT_EQ(booleanOption("T"), boolean) << text;
    }
}

TEST(PathString, joinsAtOneSeparator)
{
    EXPECT_EQ(PathString::filePath("/r", "a/b/"), "/r/a/b/");
    EXPECT_EQ(PathString::filePath("/r/", "a"), "/r/a");
    EXPECT_EQ(PathString::filePath("/", "a"), "/a");
    EXPECT_EQ(PathString::filePath("", "a/"), "a/") << "from the current directory";
}

TEST(InstallationPaths, isOneObjectForAllThreads)
{
    std::vector<InstallationPaths*> seen(8);
    std::vector<std::thread> threads;
    for (InstallationPaths*& paths : seen)
        threads.emplace_back([&paths] { paths = InstallationPaths::instance(); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(seen, std::vector(8, InstallationPaths::instance()));
    EXPECT_NE(seen.front(), nullptr);
}

TEST(InstallationPaths, setsItsDirectories)
{
    InstallationPaths& paths = *InstallationPaths::instance();
    const auto directories = [&] {
        return QStringList({paths.root(), paths.binDir(), paths.libDir(), paths.libexecDir(),
                            paths.resourceDir(), paths.iconsDir()});
    };
    const QTemporaryDir root;
    QStringList expected{root.path()};
    for (const char* name : {"bin", "lib", "libexec", "resource", "icons"}) {
        ASSERT_TRUE(QDir(root.path()).mkdir(name));
        expected += root.filePath(name);
    }
    EXPECT_EQ(warningsOfRoot(root.path()), QStringList());
    EXPECT_EQ(directories(), expected);
    ASSERT_TRUE(QDir(root.path()).rmdir("icons"));
    EXPECT_EQ(warningsOfRoot(root.path()),
              QStringList("Unable to find directory '" + root.filePath("icons") +
                          "'.\nYour Corvane product installation may be incomplete or corrupted."));
    EXPECT_EQ(directories(), expected) << "kept all the same";
    EXPECT_EQ(warningsOfRoot("/no such").size(), 6);

    paths.setConfigDirName("kept");
    paths.setAllDirectories("/flat");
    EXPECT_EQ(directories().join("") + paths.configDirName(),
              QString("/flat").repeated(6) + "kept");
    warningsOf([&] { paths.setRootFromApplication(); });
    EXPECT_EQ(paths.root() + paths.configDirName(),
              QCoreApplication::applicationDirPath() + "/...corvane");
    paths.setAllDirectories(QString());
}

TEST(InstallationPathsDeathTest, startsFromTheEnvironmentAndEndsWithTheProcess)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto child = [] {
        setenv("PELLAM_BG_TMPDIR", "/scratch", 1);
        // Handlers run in reverse order: this one after the object's destruction.
        std::atexit([] {
            std::fprintf(stderr, "then %s", InstallationPaths::instance() ? "some" : "none");
            _exit(3);
        });
        const InstallationPaths& paths = *InstallationPaths::instance();
        std::fprintf(stderr, "%s [%s] %d ", qPrintable(paths.backgroundTmpDir()),
                     qPrintable(paths.root() + paths.iconsDir() + paths.configDirName()),
                     paths.flags());
        std::exit(0);
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(3), "^/scratch \\[\\] 0 then none$");
}
