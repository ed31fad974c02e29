#define _GNU_SOURCE
#include "advice.h"

#include <stdarg.h>
#include <stdio.h>
#include <unistd.h>

struct shares {
    double mpi; /* percent of the wall-clock time */
    double io;
    double waiting;   /* percent of the MPI time */
    double processor; /* percent of one processor that a process had */
    double balance;   /* percent: work of the mean process, of that of the busiest */
};

typedef int set_call(vantrel* report, char const* id, char const* advice);

static double percent(double part, double whole)
{
    return whole > 0 ? 100 * part / whole : 0;
}

static struct shares shares_of(struct overview const* all)
{
    struct measure_figures const* total = &all->total;
    struct shares const shares = {
        .mpi = percent(mpi_seconds(total), total->wall_seconds),
        .io = percent(io_seconds(total), total->wall_seconds),
        .waiting = percent(seconds(total, MEASURE_WAIT), mpi_seconds(total)),
        .processor = percent(total->user_seconds + total->system_seconds, total->wall_seconds),
        .balance = percent(all->work_total / all->processes, all->work_largest),
    };
    return shares;
}

__attribute__((format(printf, 4, 5))) static int advise(vantrel* report, set_call* set,
                                                        char const* id, char const* format, ...)
{
    char advice[1024];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(advice, sizeof advice, format, arguments);
    va_end(arguments);
    return set(report, id, advice);
}

static int set_for_run(vantrel* report, char const* id, char const* advice)
{
    (void)id;
    return vantrel_set_dominant_metric_advice(report, advice);
}

static int advise_run(vantrel* report, struct shares const* shares, struct overview const* all)
{
    if (shares->balance < 80)
        return advise(
            report, set_for_run, NULL,
            "<b>Spread the work first.</b> Process %d had %.1f times the work of the mean "
            "one, and the others waited for it.",
            all->busiest, 100 / shares->balance);
    if (shares->mpi > 40)
        return advise(report, set_for_run, NULL,
                      "<b>Communicate less.</b> MPI took %.0f&nbsp;%% of the time though the work "
                      "is even: use fewer processes or larger blocks.",
                      shares->mpi);
    if (shares->io > 20)
        return advise(report, set_for_run, NULL,
                      "<b>Write less.</b> Checkpoints took %.0f&nbsp;%% of the time: write them "
                      "less often or to a faster file system.",
                      shares->io);
    return advise(report, set_for_run, NULL,
                  "<b>This run is in good shape:</b> the work is even and most of the time went "
                  "into computing.");
}

static int advise_entries(vantrel* report, struct shares const* shares, struct overview const* all)
{
    long const processors = sysconf(_SC_NPROCESSORS_ONLN);
    int code = VANTREL_OK;
    if (shares->waiting > 50)
        code = advise(report, vantrel_set_summary_entry_advice, "mpi",
                      "<em>%.0f&nbsp;%% of this was waiting for neighbours.</em>", shares->waiting);
    if (code == VANTREL_OK && shares->processor < 90 && all->processes > processors)
        code = advise(report, vantrel_set_summary_entry_advice, "processor",
                      "<em>%d processes shared %ld processors of this machine.</em>",
                      all->processes, processors);
    if (code == VANTREL_OK && shares->balance < 80)
        code = advise(report, vantrel_set_summary_entry_advice, "balance",
                      "<em>With even work the busiest process would need %.0f&nbsp;%% of its time "
                      "in the loops.</em>",
                      shares->balance);
    return code;
}

static int advise_sections(vantrel* report, struct shares const* shares, struct overview const* all)
{
    int code = VANTREL_OK;
    if (shares->waiting > 50)
        code = advise(report, vantrel_set_section_advice, "mpi",
                      "Nearly all transfers are short; the time goes into waiting. Compute the "
                      "inner cells between <code>MPI_Isend</code> and <code>MPI_Waitall</code>.");
    if (code == VANTREL_OK && shares->balance < 80)
        code = advise(report, vantrel_set_section_advice, "balance",
                      "Process %d worked %.2f&nbsp;s, the mean of all %.2f&nbsp;s. Cut the plate "
                      "into smaller blocks where cells are hot.",
                      all->busiest, all->work_largest, all->work_total / all->processes);
    return code;
}

int set_advice(vantrel* report, struct overview const* all)
{
    struct shares const shares = shares_of(all);
    int code = advise_run(report, &shares, all);
    if (code == VANTREL_OK)
        code = advise_entries(report, &shares, all);
    if (code == VANTREL_OK)
        code = advise_sections(report, &shares, all);
    return code;
}
