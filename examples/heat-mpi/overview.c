#include "overview.h"

#include <math.h>
#include <stddef.h>

double seconds(struct measure_figures const* figures, enum measure_activity activity)
{
    return figures->activity[activity].seconds;
}

double amount(struct measure_figures const* figures, enum measure_activity activity)
{
    return figures->activity[activity].amount;
}

double p2p_seconds(struct measure_figures const* figures)
{
    return seconds(figures, MEASURE_POST) + seconds(figures, MEASURE_WAIT);
}

double mpi_seconds(struct measure_figures const* figures)
{
    return p2p_seconds(figures) + seconds(figures, MEASURE_COLLECTIVE);
}

double io_seconds(struct measure_figures const* figures)
{
    return seconds(figures, MEASURE_WRITE) + seconds(figures, MEASURE_SYNC) +
           seconds(figures, MEASURE_READ);
}

static double work_seconds(struct measure_figures const* figures)
{
    return figures->activity[MEASURE_SWEEP].cpu_seconds +
           figures->activity[MEASURE_CURE].cpu_seconds;
}

static double mpi_share(struct measure_figures const* figures)
{
    return figures->wall_seconds > 0 ? 100 * mpi_seconds(figures) / figures->wall_seconds : 0;
}

/* The figures are an array of doubles by design, so they add up without naming each. */
static void include(struct overview* all, struct measure_figures const* process)
{
    double const* from = (double const*)process;
    double* total = (double*)&all->total;
    double* largest = (double*)&all->largest;
    for (size_t i = 0; i < sizeof *process / sizeof(double); i++) {
        total[i] += from[i];
        largest[i] = fmax(largest[i], from[i]);
    }
}

struct overview overview_of(struct measure_figures const* figures, int processes)
{
    struct overview all = {.processes = processes};
    all.work_smallest = work_seconds(&figures[0]);
    for (int rank = 0; rank < processes; rank++) {
        struct measure_figures const* process = &figures[rank];
        double const work = work_seconds(process);
        include(&all, process);
        all.work_total += work;
        if (work > all.work_largest) {
            all.work_largest = work;
            all.busiest = rank;
        }
        all.work_smallest = fmin(all.work_smallest, work);
        all.mpi_share_largest = fmax(all.mpi_share_largest, mpi_share(process));
    }
    return all;
}
