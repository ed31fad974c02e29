/* The ids of the application's details, for the shared library and for the static one. */
#include "vantrel.h"

char const* CORVANE_APPLICATION_DETAIL_NOTES = "applicationDetails.notes";
char const* CORVANE_APPLICATION_DETAIL_EXE_PATH = "applicationDetails.exePath";
char const* CORVANE_APPLICATION_DETAIL_TIME = "applicationDetails.time.plain";
char const* CORVANE_APPLICATION_DETAIL_START_DATE = "applicationDetails.startDate";
char const* CORVANE_APPLICATION_DETAIL_HOST_NAME = "applicationDetails.hostname";
char const* CORVANE_APPLICATION_DETAIL_NUM_NODES = "applicationDetails.nodes.plain";
char const* CORVANE_APPLICATION_DETAIL_NUM_PROCESSES = "applicationDetails.processes.plain";
char const* CORVANE_APPLICATION_DETAIL_COMMAND_LINE = "applicationDetails.commandLine";
char const* CORVANE_APPLICATION_DETAIL_EXE_NAME = "applicationDetails.exeName";
