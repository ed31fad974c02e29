#include "host/loaded_module.h"

#include <QFile>

#include <cstdint>
#include <dlfcn.h>

namespace vantrel {

namespace {

/// Where modules lie, from the folder of the library or of a program; of an installed program last.
constexpr const char* moduleFolders[] = {"corvane-custom-vantrel", "../corvane-custom-vantrel",
                                         VANTREL_MODULES_FROM_PROGRAM};

/// The file that is mapped at an address; a line of the table reads "begin-end mode offset device
/// inode path".
QByteArray mappedFile(std::uintptr_t address)
{
    QFile table(QStringLiteral("/proc/self/maps"));
    if (!table.open(QIODevice::ReadOnly))
        return QByteArray();
    const QList<QByteArray> lines = table.readAll().split('\n');
    for (const QByteArray& line : lines) {
        const int dash = line.indexOf('-');
        const int blank = line.indexOf(' ');
        const int path = line.indexOf('/');
        if (dash > 0 && blank > dash && path > blank &&
            line.left(dash).toULongLong(nullptr, 16) <= address &&
            address < line.mid(dash + 1, blank - dash - 1).toULongLong(nullptr, 16))
            return line.mid(path);
    }
    return QByteArray();
}

} // namespace

QByteArray ownFolder()
{
    static const char place = 0;
    const QByteArray file = mappedFile(reinterpret_cast<std::uintptr_t>(&place));
    return file.left(file.lastIndexOf('/'));
}

void* moduleFunction(const char* module, const char* function)
{
    const QByteArray own = ownFolder();
    if (own.isEmpty())
        return nullptr;
    for (const char* folder : moduleFolders) {
        const QByteArray path = (*folder == '/' ? QByteArray() : own + '/') + folder + '/' + module;
        if (void* const opened = dlopen(path.constData(), RTLD_NOW | RTLD_LOCAL))
            return dlsym(opened, function);
    }
    return nullptr;
}

bool isLoaded(const char* sharedObject)
{
    void* const handle = dlopen(sharedObject, RTLD_LAZY | RTLD_NOLOAD);
    if (handle)
        dlclose(handle);
    return handle != nullptr;
}

} // namespace vantrel
