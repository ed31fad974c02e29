/**
 * @file vantrel.h
 * Writes a report on one run of a parallel application as one HTML page.
 *
 * The order of the calls is the life of a report: create it from a definition, set values and
 * advice in any order, write it as often as you like, free it.
 *
 * Conventions, which hold for every call:
 *
 * 1. Strings are NUL-terminated UTF-8. The library copies what it keeps; your strings may go
 *    as soon as the call has returned. Strings that the library returns are owned by the
 *    library and must not be freed or written to.
 * 2. Calls that can fail return an int, one of the codes of #vantrel_code; 0 is success.
 * 3. The first failure latches the report. From then on each call that sets a value, adds advice
 *    or writes output returns #VANTREL_REPORT_IN_ERROR and does nothing, and
 *    vantrel_error_message() goes on giving the text of the first failure. There is no reset:
 *    free the report and create another one. Two failures don't latch: a null handle
 *    (#VANTREL_NULL_HANDLE) and a null output pointer (#VANTREL_NULL_OUTPUT).
 * 4. No C++ exception leaves a call.
 * 5. Reports may be made, filled, written and freed in any threads at any time, also in several at
 *    once and also from definitions that are refused, as long as each handle belongs to one thread
 *    at a time. The library starts no threads and runs no event loop.
 * 6. The library works inside your process. If there is no QCoreApplication yet, the first
 *    vantrel_create() makes one, which stays until the process ends, and it leaves your locale as
 *    it was. The codec that Qt uses for local 8-bit text is set to UTF-8.
 * 7. Nothing in a definition or a value reaches out of the process: no file, program, socket or
 *    environment variable is named by it. The first definition that the schema refuses opens a
 *    module that lies beside the library. Only in a process that uses Qt Network or Qt XML Patterns
 *    itself does Qt then start a thread of its own, which has nothing to do.
 * 8. While the process ends (exit handlers, destructors) reports that were made before can be
 *    filled, written and freed. Once tables of Qt are gone, which is when the exit handlers run
 *    that were registered before the first vantrel_create(), no report can be made: the handle is
 *    null. Advice is refused with #VANTREL_EXCEPTION then.
 * 9. After fork() both processes may go on with the reports that there are, and make others.
 * 10. The first vantrel_create() needs two file descriptors and keeps one. With none free it gives
 *    null. Later calls need none; a refused definition is explained in fewer words without one.
 * 11. A text has at most 1073741760 bytes; longer ones are refused with #VANTREL_INVALID_TEXT and
 *    never cut. Where memory ends, calls fail with #VANTREL_EXCEPTION or #VANTREL_OUT_OF_MEMORY and
 *    vantrel_create() gives null; if that was the first one, none can be made in this process.
 */
#ifndef VANTREL_H
#define VANTREL_H

/* Callers leave this alone. The static library of vantrel_late.h is built with an empty one. */
#if !defined(VANTREL_EXPORT) && defined(__GNUC__)
#define VANTREL_EXPORT __attribute__((visibility("default")))
#elif !defined(VANTREL_EXPORT)
#define VANTREL_EXPORT
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** A report. Its content is private to the library. */
typedef struct vantrel_handle vantrel;

/** What the calls return. Codes that are not listed are never returned. */
enum vantrel_code {
    /** The call did what it says. */
    VANTREL_OK = 0,
    /** An exception was caught inside the library; the error message tells what was being done. */
    VANTREL_EXCEPTION = 1,
    /** The handle is null. */
    VANTREL_NULL_HANDLE = 2,
    /** The output buffer could not be allocated. */
    VANTREL_OUT_OF_MEMORY = 3,
    /** The report has no metric of this id. */
    VANTREL_UNKNOWN_METRIC = 4,
    /** The definition has no subsection of this id. */
    VANTREL_UNKNOWN_SECTION = 5,
    /** The definition has no summary entry of this id. */
    VANTREL_UNKNOWN_SUMMARY_ENTRY = 6,
    /** A value that the report needs is missing, or can't be used. */
    VANTREL_MISSING_VALUE = 7,
    /** A text isn't valid UTF-8 or is too long, or advice has a tag that isn't allowed. */
    VANTREL_INVALID_TEXT = 8,
    /** The number of processes is below 1, or the number of nodes below 0. */
    VANTREL_INVALID_COUNT = 9,
    /** The metric holds values of another type. */
    VANTREL_WRONG_TYPE = 10,
    /** A string pointer is null. */
    VANTREL_NULL_STRING = 11,
    /** An earlier call has failed; its message is still there. */
    VANTREL_REPORT_IN_ERROR = 12,
    /** The pointer for the output is null. */
    VANTREL_NULL_OUTPUT = 13,
    /** The section has no advice slot of this number. */
    VANTREL_INVALID_ADVICE_NUMBER = 16,
    /** A section of the report could not be put together from the definition. */
    VANTREL_SECTION_FAILED = 103
};

/**
 * The ids of the application's details, for the vantrel_set_value_ calls.
 *
 * EXE_NAME and NUM_PROCESSES must be set before the report is written. The other seven may stay
 * unset and then count as an empty text or 0. They are variables, so that bindings can look them
 * up as symbols; don't assign to them.
 * @{
 */
/** Free text on the run; string. */
extern VANTREL_EXPORT char const* CORVANE_APPLICATION_DETAIL_NOTES;
/** Directory or full path of the executable; string. */
extern VANTREL_EXPORT char const* CORVANE_APPLICATION_DETAIL_EXE_PATH;
/** Wall-clock time of the run in whole seconds; int. */
extern VANTREL_EXPORT char const* CORVANE_APPLICATION_DETAIL_TIME;
/** When the run began, as it is to be shown; string. */
extern VANTREL_EXPORT char const* CORVANE_APPLICATION_DETAIL_START_DATE;
/** Name of the machine; string. */
extern VANTREL_EXPORT char const* CORVANE_APPLICATION_DETAIL_HOST_NAME;
/** Number of nodes, 0 for unknown; int. */
extern VANTREL_EXPORT char const* CORVANE_APPLICATION_DETAIL_NUM_NODES;
/** Number of processes, at least 1; int. Required. */
extern VANTREL_EXPORT char const* CORVANE_APPLICATION_DETAIL_NUM_PROCESSES;
/** The command line of the run; string. */
extern VANTREL_EXPORT char const* CORVANE_APPLICATION_DETAIL_COMMAND_LINE;
/** Name of the executable; string. Required. */
extern VANTREL_EXPORT char const* CORVANE_APPLICATION_DETAIL_EXE_NAME;
/** @} */

/**
 * Creates a report from the text of a definition.
 *
 * @param xmlLayout the definition itself, not a path. A null pointer gives a report in error.
 * @return a handle, to be released with vantrel_free(). Also a definition that can't be used gives
 *         a handle: ask vantrel_has_error(). Null only if the process has no application object
 *         and none could be made, if memory ran out, or if the process is ending.
 */
VANTREL_EXPORT vantrel* vantrel_create(char const* xmlLayout);

/**
 * Releases a report and all texts that it owns.
 *
 * @param report may be null. Output buffers are not touched: they are yours.
 */
VANTREL_EXPORT void vantrel_free(vantrel* report);

/**
 * Tells whether a call has failed.
 *
 * @return 1 if the report is in error or null, else 0.
 */
VANTREL_EXPORT int vantrel_has_error(vantrel const* report);

/**
 * Gives the text of the first failure.
 *
 * @return UTF-8 of at most 4094 bytes, longer texts being cut off, also inside a character; owned
 * by the report and valid until vantrel_free(). A null pointer if the report isn't in error; a
 * fixed text if it is null.
 */
VANTREL_EXPORT char const* vantrel_error_message(vantrel const* report);

/**
 * Sets a metric of type double; every metric of the definition is set with this call.
 *
 * @param metricId id of a metric as it stands in the definition, or the full key of any other.
 * @param value    in the metric's own unit. NaN and infinities show as not supported in sections
 * and leave out figure and bar in the summary.
 * @return #VANTREL_OK, #VANTREL_NULL_HANDLE, #VANTREL_REPORT_IN_ERROR, #VANTREL_INVALID_TEXT,
 *         #VANTREL_UNKNOWN_METRIC, #VANTREL_WRONG_TYPE or #VANTREL_EXCEPTION.
 */
VANTREL_EXPORT int vantrel_set_value_double(vantrel* report, char const* metricId, double value);

/**
 * Sets a metric of type integer, such as #CORVANE_APPLICATION_DETAIL_NUM_PROCESSES.
 *
 * @return as vantrel_set_value_double(), and #VANTREL_INVALID_COUNT.
 */
VANTREL_EXPORT int vantrel_set_value_int(vantrel* report, char const* metricId, int value);

/**
 * Sets a metric of type string, such as #CORVANE_APPLICATION_DETAIL_EXE_NAME.
 *
 * The value is tested first: with a value that is null or not UTF-8 the handle must not be null,
 * and the message replaces an earlier one.
 *
 * @param value shown as it stands: markup in it is not interpreted.
 * @return as vantrel_set_value_double(), and #VANTREL_NULL_STRING.
 */
VANTREL_EXPORT int vantrel_set_value_string(vantrel* report, char const* metricId,
                                            char const* value);

/**
 * Names the metric that dominated the run. Without this call the first vantrel_write_html() names
 * the metric of the summary with the greatest value, the first of equal ones, and later ones keep
 * it.
 *
 * @param metricId id of a metric of the definition.
 * @return #VANTREL_OK, #VANTREL_NULL_HANDLE, #VANTREL_REPORT_IN_ERROR, #VANTREL_INVALID_TEXT,
 *         #VANTREL_UNKNOWN_METRIC or #VANTREL_EXCEPTION.
 */
VANTREL_EXPORT int vantrel_set_dominant_metric(vantrel* report, char const* metricId);

/**
 * Sets the advice on the run as a whole.
 *
 * @param advice a fragment of HTML, shown as it stands. These tags are allowed, in lower case: p
 * div h1 to h6 ul ol pre blockquote b big i small tt abbr acronym cite code dfn em kbd strong samp
 * time var br q span sub sup label; and the named entities of HTML.
 * @return #VANTREL_OK, #VANTREL_NULL_HANDLE, #VANTREL_REPORT_IN_ERROR, #VANTREL_NULL_STRING,
 *         #VANTREL_INVALID_TEXT or #VANTREL_EXCEPTION.
 */
VANTREL_EXPORT int vantrel_set_dominant_metric_advice(vantrel* report, char const* advice);

/**
 * Sets the advice of a summary entry.
 *
 * @param entryId id of an entry of the definition's summary.
 * @param advice  as for vantrel_set_dominant_metric_advice().
 * @return as vantrel_set_dominant_metric_advice(), and #VANTREL_UNKNOWN_SUMMARY_ENTRY.
 */
VANTREL_EXPORT int vantrel_set_summary_entry_advice(vantrel* report, char const* entryId,
                                                    char const* advice);

/**
 * Sets the first advice of a section.
 *
 * @param sectionId id of a subsection of the definition.
 * @param advice    as for vantrel_set_dominant_metric_advice().
 * @return as vantrel_set_dominant_metric_advice(), and #VANTREL_UNKNOWN_SECTION and
 *         #VANTREL_INVALID_ADVICE_NUMBER for a section that takes no advice.
 */
VANTREL_EXPORT int vantrel_set_section_advice(vantrel* report, char const* sectionId,
                                              char const* advice);

/**
 * Writes the report as one HTML page, complete in itself.
 *
 * @param report every metric of the definition must have a value, and so must the two required
 *               application details.
 * @param output receives a buffer that you release with free(). Left as it was after
 *               #VANTREL_NULL_HANDLE and #VANTREL_REPORT_IN_ERROR and if the number of processes is
 *               missing or invalid; null after any other failure. The buffer holds the UTF-8
 *               of the page and no NUL behind it. No length is handed back: the page ends with
 *               "</html>", which stands nowhere else in it, so search for that text and stop
 *               behind it.
 * @return #VANTREL_OK, #VANTREL_NULL_HANDLE, #VANTREL_REPORT_IN_ERROR, #VANTREL_NULL_OUTPUT,
 *         #VANTREL_MISSING_VALUE, #VANTREL_INVALID_COUNT, #VANTREL_SECTION_FAILED,
 *         #VANTREL_OUT_OF_MEMORY or #VANTREL_EXCEPTION.
 */
VANTREL_EXPORT int vantrel_write_html(vantrel* report, char** output);

/**
 * Tells what library this is, in five lines of text. Needs no report.
 *
 * @return a text that stays valid until the process ends; every call returns the same pointer.
 */
VANTREL_EXPORT char const* vantrel_library_id_string(void);

#ifdef __cplusplus
} /* extern "C" */
#endif

#if defined(__cplusplus) && defined(QT_CORE_LIB)
#include <QtCore/QVariant>

#if defined(__clang__)
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif

/**
 * Reads a stored value. For programs that use Qt themselves; works on a report in error too.
 *
 * @param report   a null handle gives an invalid variant.
 * @param metricId the full key of the value, such as "custom.report.metric.speed".
 * @return the value, or an invalid variant if there is none.
 */
extern "C" VANTREL_EXPORT QVariant vantrel_internal_get_value(vantrel const* report,
                                                              char const* metricId);

#if defined(__clang__)
#pragma clang diagnostic pop
#endif
#endif

#endif
