/* What one process did during the run: time and bytes by activity, processor time, memory.

   MPI calls are measured without the program's help: measure.c defines the MPI_ functions and
   passes on to the PMPI_ ones. Everything else is put between measure_begin() and measure_end(). */
#ifndef HEAT_MEASURE_H
#define HEAT_MEASURE_H

#include <mpi.h>

enum measure_activity {
    MEASURE_POST,       /* starting point-to-point transfers; amount: bytes sent */
    MEASURE_WAIT,       /* waiting for point-to-point transfers */
    MEASURE_COLLECTIVE, /* collective calls; amount: bytes of the process's own contribution */
    MEASURE_WRITE,      /* writing the checkpoint; amount: bytes */
    MEASURE_SYNC,       /* waiting until the checkpoint is on the disk */
    MEASURE_READ,       /* reading the checkpoint back; amount: bytes */
    MEASURE_SWEEP,      /* diffusing heat; amount: cells */
    MEASURE_CURE,       /* curing hot cells; amount: cells */
    MEASURE_ACTIVITIES
};

struct measure_total {
    double seconds;
    double cpu_seconds; /* not taken for MPI calls */
    double calls;
    double amount;
};

/* Nothing but doubles, so that it travels as an array of them. */
struct measure_figures {
    struct measure_total activity[MEASURE_ACTIVITIES];
    double wall_seconds;
    double user_seconds;
    double system_seconds;
    double peak_bytes;       /* largest resident set */
    double allocated_bytes;  /* what the program asked for with measure_allocation() */
    double page_faults;      /* served without reading from a disk, and those that read */
    double forced_switches;  /* taken off the processor */
    double node_memory_used; /* 0 to 1, by all programs of the node; below 0 if unknown */
};

struct measure_mark {
    double wall;
    double cpu;
};

/* Collective. Lets all processes start together, then measures from here on. */
void measure_start(MPI_Comm comm);

/* Ends the measurement; what is called later is not counted. */
void measure_stop(void);

struct measure_mark measure_begin(void);
void measure_end(enum measure_activity activity, struct measure_mark mark, double amount);

/* Tells that the process keeps this much data. */
void measure_allocation(double bytes);

/* Collective. Fills all[] of the first process with the figures of every process, by rank. */
int measure_gather(MPI_Comm comm, struct measure_figures* all);

/* Collective. The number of different machines that the processes run on. */
int measure_count_nodes(MPI_Comm comm);

#endif
