#define _GNU_SOURCE
#include "report.h"

#include "advice.h"
#include "heat-report.h"
#include "overview.h"

#include <errno.h>
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>
#include <vantrel_late.h>

struct metric {
    char const* id;
    double value;
};

static double ratio(double part, double whole)
{
    return whole > 0 ? part / whole : 0;
}

static double percent(double part, double whole)
{
    return 100 * ratio(part, whole);
}

static int set_metrics(vantrel* report, struct metric const* metrics, size_t count)
{
    int code = VANTREL_OK;
    for (size_t i = 0; i < count && code == VANTREL_OK; i++)
        code = vantrel_set_value_double(report, metrics[i].id, metrics[i].value);
    return code;
}

static int set_computing(vantrel* report, struct overview const* all)
{
    struct measure_figures const* total = &all->total;
    double const wall = total->wall_seconds;
    double const elsewhere = mpi_seconds(total) + io_seconds(total);
    struct metric const metrics[] = {
        {"compute.share", percent(wall - elsewhere, wall)},
        {"compute.sweep", percent(seconds(total, MEASURE_SWEEP), wall)},
        {"compute.cure", percent(seconds(total, MEASURE_CURE), wall)},
        {"compute.rate", ratio(amount(total, MEASURE_SWEEP), all->largest.wall_seconds)},
        {"cpu.share", percent(total->user_seconds + total->system_seconds, wall)},
        {"cpu.user", percent(total->user_seconds, wall)},
        {"cpu.system", percent(total->system_seconds, wall)},
        {"cpu.switches", ratio(total->forced_switches, wall)},
    };
    return set_metrics(report, metrics, sizeof metrics / sizeof metrics[0]);
}

static int set_mpi(vantrel* report, struct overview const* all)
{
    struct measure_figures const* total = &all->total;
    double const wall = total->wall_seconds;
    double const sent = amount(total, MEASURE_POST);
    struct metric const metrics[] = {
        {"mpi.share", percent(mpi_seconds(total), wall)},
        {"mpi.p2p.share", percent(p2p_seconds(total), wall)},
        {"mpi.p2p.wait", percent(seconds(total, MEASURE_WAIT), wall)},
        {"mpi.collective.share", percent(seconds(total, MEASURE_COLLECTIVE), wall)},
        {"mpi.p2p.rate", ratio(sent, p2p_seconds(total))},
        {"mpi.p2p.size", ratio(sent, total->activity[MEASURE_POST].calls)},
    };
    return set_metrics(report, metrics, sizeof metrics / sizeof metrics[0]);
}

static int set_checkpoint(vantrel* report, struct overview const* all)
{
    struct measure_figures const* total = &all->total;
    double const wall = total->wall_seconds;
    double const write_time = seconds(total, MEASURE_WRITE) + seconds(total, MEASURE_SYNC);
    double const read_time = seconds(total, MEASURE_READ);
    struct metric const metrics[] = {
        {"io.share", percent(io_seconds(total), wall)},
        {"io.write.share", percent(seconds(total, MEASURE_WRITE), wall)},
        {"io.sync.share", percent(seconds(total, MEASURE_SYNC), wall)},
        {"io.write.rate", all->processes * ratio(amount(total, MEASURE_WRITE), write_time)},
        {"io.read.rate", all->processes * ratio(amount(total, MEASURE_READ), read_time)},
    };
    return set_metrics(report, metrics, sizeof metrics / sizeof metrics[0]);
}

static int set_memory(vantrel* report, struct overview const* all)
{
    double const node_used = all->largest.node_memory_used;
    struct metric const metrics[] = {
        {"memory.peak.mean", all->total.peak_bytes / all->processes},
        {"memory.peak.largest", all->largest.peak_bytes},
        {"memory.fields", all->total.allocated_bytes / all->processes},
        {"memory.faults", ratio(all->total.page_faults, all->total.wall_seconds)},
        {"memory.node", node_used > 0 ? 100 * node_used : NAN},
    };
    return set_metrics(report, metrics, sizeof metrics / sizeof metrics[0]);
}

static int set_balance(vantrel* report, struct overview const* all)
{
    double const mean = all->work_total / all->processes;
    struct metric const metrics[] = {
        {"balance.load", percent(mean, all->work_largest)},
        {"balance.work.largest", all->work_largest},
        {"balance.work.mean", mean},
        {"balance.work.smallest", all->work_smallest},
        {"balance.mpi", all->mpi_share_largest},
        {"balance.busiest", all->busiest},
    };
    return set_metrics(report, metrics, sizeof metrics / sizeof metrics[0]);
}

/* The summary also has figures that are no share of the time, so the greatest value of all would
   be the wrong choice. */
static int set_dominant(vantrel* report, struct overview const* all)
{
    double const mpi = mpi_seconds(&all->total);
    double const io = io_seconds(&all->total);
    double const computing = all->total.wall_seconds - mpi - io;
    char const* id = "compute.share";
    if (mpi > computing && mpi >= io)
        id = "mpi.share";
    else if (io > computing)
        id = "io.share";
    return vantrel_set_dominant_metric(report, id);
}

static void join_arguments(char** argv, char* text, size_t size)
{
    size_t used = 0;
    text[0] = '\0';
    for (int i = 0; argv[i] && used < size; i++)
        used += (size_t)snprintf(text + used, size - used, "%s%s", i > 0 ? " " : "", argv[i]);
}

/* The number of bytes of the UTF-8 character at the start of the text, or 0 if there is none. */
static int character_length(unsigned char const* text)
{
    int const length = text[0] < 0x80                       ? 1
                       : text[0] >= 0xc2 && text[0] < 0xe0  ? 2
                       : text[0] >= 0xe0 && text[0] < 0xf0  ? 3
                       : text[0] >= 0xf0 && text[0] <= 0xf4 ? 4
                                                            : 0;
    for (int i = 1; i < length; i++) {
        if ((text[i] & 0xc0) != 0x80)
            return 0;
    }
    if ((text[0] == 0xe0 && text[1] < 0xa0) || (text[0] == 0xed && text[1] > 0x9f) ||
        (text[0] == 0xf0 && text[1] < 0x90) || (text[0] == 0xf4 && text[1] > 0x8f))
        return 0;
    return length;
}

/* Arguments and paths can be any bytes, but a report takes UTF-8 and refuses all else. */
static char* with_valid_characters(char* text)
{
    for (char* at = text; *at;) {
        int const length = character_length((unsigned char const*)at);
        if (length == 0)
            *at = '?';
        at += length > 0 ? length : 1;
    }
    return text;
}

static int set_details(vantrel* report, struct report_run const* run, struct overview const* all)
{
    char command[4096], host[256] = "", path[4096] = "", date[64] = "";
    ssize_t const length = readlink("/proc/self/exe", path, sizeof path - 1);
    char const* slash;
    path[length > 0 ? length : 0] = '\0';
    slash = strrchr(path, '/');
    join_arguments(run->argv, command, sizeof command);
    gethostname(host, sizeof host - 1);
    strftime(date, sizeof date, "%Y-%m-%d %H:%M:%S", localtime(&run->start));
    struct {
        char const* id;
        char const* text;
    } const texts[] = {
        {CORVANE_APPLICATION_DETAIL_EXE_NAME, slash ? slash + 1 : "heat-mpi"},
        {CORVANE_APPLICATION_DETAIL_EXE_PATH, with_valid_characters(path)},
        {CORVANE_APPLICATION_DETAIL_COMMAND_LINE, with_valid_characters(command)},
        {CORVANE_APPLICATION_DETAIL_HOST_NAME, host},
        {CORVANE_APPLICATION_DETAIL_START_DATE, date},
        {CORVANE_APPLICATION_DETAIL_NOTES, run->notes},
    };
    struct {
        char const* id;
        int value;
    } const numbers[] = {
        {CORVANE_APPLICATION_DETAIL_NUM_PROCESSES, run->processes},
        {CORVANE_APPLICATION_DETAIL_NUM_NODES, run->nodes},
        {CORVANE_APPLICATION_DETAIL_TIME, (int)lround(all->largest.wall_seconds)},
    };
    int code = VANTREL_OK;
    for (size_t i = 0; i < sizeof texts / sizeof texts[0] && code == VANTREL_OK; i++)
        code = vantrel_set_value_string(report, texts[i].id, texts[i].text);
    for (size_t i = 0; i < sizeof numbers / sizeof numbers[0] && code == VANTREL_OK; i++)
        code = vantrel_set_value_int(report, numbers[i].id, numbers[i].value);
    return code;
}

static int fill(vantrel* report, struct report_run const* run)
{
    struct overview const all = overview_of(run->figures, run->processes);
    int code = set_details(report, run, &all);
    if (code == VANTREL_OK)
        code = set_computing(report, &all);
    if (code == VANTREL_OK)
        code = set_mpi(report, &all);
    if (code == VANTREL_OK)
        code = set_checkpoint(report, &all);
    if (code == VANTREL_OK)
        code = set_memory(report, &all);
    if (code == VANTREL_OK)
        code = set_balance(report, &all);
    if (code == VANTREL_OK)
        code = set_dominant(report, &all);
    if (code == VANTREL_OK)
        code = set_advice(report, &all);
    return code;
}

/* No NUL follows the page, so string functions would read on behind it. */
static size_t page_length(char const* page)
{
    static char const end[] = "</html>";
    char const* at = page;
    while (*at != '<' || memcmp(at, end, sizeof end - 1) != 0)
        at++;
    return (size_t)(at - page) + sizeof end - 1;
}

static int save(char const* page, char const* path)
{
    size_t const length = page_length(page);
    FILE* file = fopen(path, "wb");
    int good = file && fwrite(page, 1, length, file) == length;
    if (file && fclose(file) != 0)
        good = 0;
    if (!good)
        fprintf(stderr, "heat-mpi: cannot write the report %s: %s\n", path, strerror(errno));
    return good ? 0 : -1;
}

void report_check(void)
{
    char const* const reason = vantrel_late_open();
    if (reason)
        fprintf(stderr, "heat-mpi: this run will write no report. %s\n", reason);
}

int report_write(struct report_run const* run, char const* path)
{
    vantrel* report = vantrel_create(heat_report_xml);
    char* page = NULL;
    int result = -1;
    int code = vantrel_has_error(report) ? VANTREL_REPORT_IN_ERROR : fill(report, run);
    if (code == VANTREL_OK)
        code = vantrel_write_html(report, &page);
    if (code == VANTREL_OK) {
        result = save(page, path);
    } else {
        char const* message = vantrel_error_message(report);
        fprintf(stderr, "heat-mpi: no report, code %d: %s\n", code, message ? message : "");
    }
    free(page);
    vantrel_free(report);
    return result;
}
