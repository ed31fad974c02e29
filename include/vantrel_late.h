/**
 * @file vantrel_late.h
 * The static library for tools that every process of a job links, while one writes a report.
 *
 * Link libvantrel-late.a in place of the shared library, and make the calls of vantrel.h. The
 * program then doesn't load the shared library, Qt and libxml2 with it, when it starts: the first
 * vantrel_create() does. A process that writes no report never has them.
 *
 * What vantrel.h says holds. In addition:
 *
 * 1. The library is opened by vantrel_create(), vantrel_late_open() and
 * vantrel_library_id_string(), and by no other call. It is looked for in this order:
 *    - the file that the environment variable VANTREL_LIBRARY names. If that can't be opened,
 *      nothing else is tried. An empty variable counts as none.
 *    - libcorvane-custom-vantrel.so.1 in the folder of the program's file;
 *    - libcorvane-custom-vantrel.so.1 where the loader looks on behalf of the file that this
 * library is linked into: its RUNPATH, LD_LIBRARY_PATH, the system's folders. A process with raised
 * privileges (set-user-ID and the like) looks in the last place alone.
 * 2. A library that lacks a call of vantrel.h is refused as a whole.
 * 3. Once open, the library stays so until the process ends.
 * 4. As long as it isn't open, vantrel_create() gives null, the calls do what they do for a null
 *    handle, vantrel_error_message() gives the reason, and so does vantrel_library_id_string(). A
 *    null handle doesn't crash vantrel_set_value_string() then.
 * 5. An open that has failed can be tried again: each vantrel_create(), vantrel_late_open() and
 *    vantrel_library_id_string() does. The reason stays that of the first failure.
 * 6. All of this can be called by any threads at any time, the first calls too.
 * 7. The library adds nothing to what a shared object that it is linked into exports, so a
 * preloaded tool doesn't get between a host and a library of its own.
 *
 * Link one of the two libraries, not both.
 */
#ifndef VANTREL_LATE_H
#define VANTREL_LATE_H

#include "vantrel.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Opens the library if it isn't open. For the start of a job: a library that is missing is told
 * before the run and not after it.
 *
 * Where it succeeds, the process maps the library, Qt and libxml2, so call it in the process that
 * will write the report. No application object is made, and no file stays open.
 *
 * @return a null pointer if the library is open. Else the reason of the first failure, one line of
 *         at most 4094 bytes that names what was tried, with the paths as they are. It stays valid
 *         until the process ends and need not be freed.
 */
char const* vantrel_late_open(void);

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif
