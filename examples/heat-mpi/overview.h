/* The figures of all processes put together. */
#ifndef HEAT_OVERVIEW_H
#define HEAT_OVERVIEW_H

#include "measure.h"

struct overview {
    int processes;
    struct measure_figures total;
    struct measure_figures largest;
    double work_total; /* processor seconds in the solver's own loops */
    double work_largest;
    double work_smallest;
    int busiest; /* process of work_largest */
    double mpi_share_largest;
};

/* figures[] has one element a process, by rank. */
struct overview overview_of(struct measure_figures const* figures, int processes);

double seconds(struct measure_figures const* figures, enum measure_activity activity);
double amount(struct measure_figures const* figures, enum measure_activity activity);
double p2p_seconds(struct measure_figures const* figures);
double mpi_seconds(struct measure_figures const* figures);
double io_seconds(struct measure_figures const* figures);

#endif
