#define _GNU_SOURCE
#include "measure.h"

#include <stdio.h>
#include <sys/resource.h>
#include <time.h>

static struct measure_figures figures;
static struct rusage usage_at_start;
static double wall_at_start;
static int running;

static double seconds_of(clockid_t clock)
{
    struct timespec now;
    clock_gettime(clock, &now);
    return (double)now.tv_sec + 1e-9 * (double)now.tv_nsec;
}

static double wall(void)
{
    return seconds_of(CLOCK_MONOTONIC);
}

static void add(enum measure_activity activity, double since, double amount)
{
    if (!running)
        return;
    figures.activity[activity].seconds += wall() - since;
    figures.activity[activity].calls += 1;
    figures.activity[activity].amount += amount;
}

static double bytes_of(int count, MPI_Datatype type)
{
    int size = 0;
    PMPI_Type_size(type, &size);
    return (double)count * size;
}

static double seconds_between(struct timeval from, struct timeval to)
{
    return (double)(to.tv_sec - from.tv_sec) + 1e-6 * (double)(to.tv_usec - from.tv_usec);
}

static double node_memory_used(void)
{
    FILE* file = fopen("/proc/meminfo", "r");
    double total = 0;
    double available = -1;
    char line[128];
    if (!file)
        return -1;
    while (fgets(line, sizeof line, file)) {
        sscanf(line, "MemTotal: %lf", &total);
        sscanf(line, "MemAvailable: %lf", &available);
    }
    fclose(file);
    return total > 0 && available >= 0 ? (total - available) / total : -1;
}

void measure_start(MPI_Comm comm)
{
    PMPI_Barrier(comm);
    getrusage(RUSAGE_SELF, &usage_at_start);
    wall_at_start = wall();
    running = 1;
}

void measure_stop(void)
{
    struct rusage usage;
    figures.wall_seconds = wall() - wall_at_start;
    running = 0;
    getrusage(RUSAGE_SELF, &usage);
    figures.user_seconds = seconds_between(usage_at_start.ru_utime, usage.ru_utime);
    figures.system_seconds = seconds_between(usage_at_start.ru_stime, usage.ru_stime);
    figures.peak_bytes = 1024.0 * (double)usage.ru_maxrss;
    figures.page_faults = (double)(usage.ru_minflt - usage_at_start.ru_minflt) +
                          (double)(usage.ru_majflt - usage_at_start.ru_majflt);
    figures.forced_switches = (double)(usage.ru_nivcsw - usage_at_start.ru_nivcsw);
    figures.node_memory_used = node_memory_used();
}

struct measure_mark measure_begin(void)
{
    struct measure_mark mark = {wall(), seconds_of(CLOCK_THREAD_CPUTIME_ID)};
    return mark;
}

void measure_end(enum measure_activity activity, struct measure_mark mark, double amount)
{
    if (running)
        figures.activity[activity].cpu_seconds += seconds_of(CLOCK_THREAD_CPUTIME_ID) - mark.cpu;
    add(activity, mark.wall, amount);
}

void measure_allocation(double bytes)
{
    figures.allocated_bytes += bytes;
}

int measure_gather(MPI_Comm comm, struct measure_figures* all)
{
    int const count = (int)(sizeof figures / sizeof(double));
    return PMPI_Gather(&figures, count, MPI_DOUBLE, all, count, MPI_DOUBLE, 0, comm);
}

int measure_count_nodes(MPI_Comm comm)
{
    MPI_Comm node;
    int rank_on_node;
    int nodes = 0;
    PMPI_Comm_split_type(comm, MPI_COMM_TYPE_SHARED, 0, MPI_INFO_NULL, &node);
    PMPI_Comm_rank(node, &rank_on_node);
    int const first = rank_on_node == 0;
    PMPI_Allreduce(&first, &nodes, 1, MPI_INT, MPI_SUM, comm);
    PMPI_Comm_free(&node);
    return nodes;
}

/* The MPI functions that the solver calls. A message counts where it is sent. */

int MPI_Isend(void const* buffer, int count, MPI_Datatype type, int to, int tag, MPI_Comm comm,
              MPI_Request* request)
{
    double const since = wall();
    int const result = PMPI_Isend(buffer, count, type, to, tag, comm, request);
    if (to != MPI_PROC_NULL)
        add(MEASURE_POST, since, bytes_of(count, type));
    return result;
}

int MPI_Irecv(void* buffer, int count, MPI_Datatype type, int from, int tag, MPI_Comm comm,
              MPI_Request* request)
{
    double const since = wall();
    int const result = PMPI_Irecv(buffer, count, type, from, tag, comm, request);
    if (running)
        figures.activity[MEASURE_POST].seconds += wall() - since;
    return result;
}

int MPI_Waitall(int count, MPI_Request requests[], MPI_Status statuses[])
{
    double const since = wall();
    int const result = PMPI_Waitall(count, requests, statuses);
    add(MEASURE_WAIT, since, 0);
    return result;
}

int MPI_Allreduce(void const* from, void* to, int count, MPI_Datatype type, MPI_Op operation,
                  MPI_Comm comm)
{
    double const since = wall();
    int const result = PMPI_Allreduce(from, to, count, type, operation, comm);
    add(MEASURE_COLLECTIVE, since, bytes_of(count, type));
    return result;
}

int MPI_Reduce(void const* from, void* to, int count, MPI_Datatype type, MPI_Op operation, int root,
               MPI_Comm comm)
{
    double const since = wall();
    int const result = PMPI_Reduce(from, to, count, type, operation, root, comm);
    add(MEASURE_COLLECTIVE, since, bytes_of(count, type));
    return result;
}

int MPI_Bcast(void* buffer, int count, MPI_Datatype type, int root, MPI_Comm comm)
{
    double const since = wall();
    int const result = PMPI_Bcast(buffer, count, type, root, comm);
    int rank;
    PMPI_Comm_rank(comm, &rank);
    add(MEASURE_COLLECTIVE, since, rank == root ? bytes_of(count, type) : 0);
    return result;
}
