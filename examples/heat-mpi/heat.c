/* Heat spreading over an insulated plate, by Jacobi sweeps on blocks of a two-dimensional grid.
   The program compares its result with the exact solution, measures itself, and writes a report
   on its own run. */
#define _GNU_SOURCE
#include "checkpoint.h"
#include "grid.h"
#include "measure.h"
#include "report.h"

#include <errno.h>
#include <getopt.h>
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <time.h>

#define LARGEST_SIZE 30000
#define LARGEST_STEPS 10000000
#define CHECK_EVERY 10
#define CHECKPOINTS 5
#define TOLERANCE 1e-9

enum exit_code { DONE = 0, WRONG_RESULT = 1, WRONG_USAGE = 2, NO_REPORT = 3 };

struct options {
    int size;
    int steps;
    char const* checkpoint;
    char const* report;
    int help;
};

struct result {
    int good;
    double error;      /* largest difference from the exact solution */
    double difference; /* largest change of a cell in the last step looked at */
    double heat;       /* mean temperature */
    double cure;       /* mean cure */
};

static void print_help(void)
{
    printf("Usage: mpirun -n PROCESSES heat-mpi [OPTION]...\n"
           "Computes how heat spreads over a plate and writes a report on the run.\n\n"
           "  --size N           cells along one side of the plate, 1 to %d (default 1536)\n"
           "  --steps N          time steps, 1 to %d (default 2400)\n"
           "  --checkpoint FILE  checkpoint to write (default heat-checkpoint.bin)\n"
           "  --report FILE      page to write (default heat-report.html)\n"
           "  --help             print this text\n\n"
           "Exit codes: 0 done, 1 wrong result or checkpoint failed, 2 wrong usage,\n"
           "3 right result but no report.\n",
           LARGEST_SIZE, LARGEST_STEPS);
}

static int read_number(char const* name, char const* text, int largest, int* number, int speak)
{
    char* end;
    errno = 0;
    long const value = strtol(text, &end, 10);
    if (errno == 0 && end != text && *end == '\0' && value >= 1 && value <= largest) {
        *number = (int)value;
        return 0;
    }
    if (speak)
        fprintf(stderr, "heat-mpi: --%s takes a whole number from 1 to %d, not '%s'\n", name,
                largest, text);
    return -1;
}

static int read_file_name(char const* name, char const* text, char const** file, int speak)
{
    *file = text;
    if (*text != '\0')
        return 0;
    if (speak)
        fprintf(stderr, "heat-mpi: --%s takes the name of a file\n", name);
    return -1;
}

static int complain(char const* problem, char const* argument)
{
    fprintf(stderr, "heat-mpi: %s '%s'; try --help\n", problem, argument);
    return -1;
}

/* Every process reads its arguments; only one of them speaks about a mistake. */
static int read_options(int argc, char** argv, struct options* options, int speak)
{
    static struct option const names[] = {{"size", required_argument, NULL, 's'},
                                          {"steps", required_argument, NULL, 'n'},
                                          {"checkpoint", required_argument, NULL, 'c'},
                                          {"report", required_argument, NULL, 'r'},
                                          {"help", no_argument, NULL, 'h'},
                                          {NULL, 0, NULL, 0}};
    int bad = 0;
    int option;
    int at = 1; /* where the option stands; optind already points behind it */
    opterr = 0;
    while (!bad && (option = getopt_long(argc, argv, "+:", names, NULL)) != -1) {
        if (option == 's')
            bad = read_number("size", optarg, LARGEST_SIZE, &options->size, speak);
        else if (option == 'n')
            bad = read_number("steps", optarg, LARGEST_STEPS, &options->steps, speak);
        else if (option == 'c')
            bad = read_file_name("checkpoint", optarg, &options->checkpoint, speak);
        else if (option == 'r')
            bad = read_file_name("report", optarg, &options->report, speak);
        else if (option == 'h')
            options->help = 1;
        else if (option == ':')
            bad = speak ? complain("a value is missing behind", argv[at]) : -1;
        else
            bad = speak ? complain("unknown option", argv[at]) : -1;
        at = optind;
    }
    if (!bad && optind < argc)
        bad = speak ? complain("unexpected argument", argv[optind]) : -1;
    return bad;
}

static int advance(struct grid* grid, struct options const* options, struct result* result)
{
    int const interval = options->steps > CHECKPOINTS ? options->steps / CHECKPOINTS : 1;
    for (int step = 1; step <= options->steps; step++) {
        grid_step(grid);
        if (step % CHECK_EVERY == 0 || step == options->steps) {
            double const mine = grid_difference(grid);
            MPI_Allreduce(&mine, &result->difference, 1, MPI_DOUBLE, MPI_MAX, grid->comm);
        }
        if (step % interval == 0 || step == options->steps)
            if (checkpoint_write(grid, options->checkpoint, step) != 0)
                return -1;
    }
    return checkpoint_verify(grid, options->checkpoint);
}

static void compare_with_solution(struct grid* grid, int steps, struct result* result)
{
    double const cells = (double)grid->size * grid->size;
    double const mine[2] = {grid_sum(grid, grid->now), grid_sum(grid, grid->cure)};
    double all[2] = {0, 0};
    double error;
    MPI_Reduce(mine, all, 2, MPI_DOUBLE, MPI_SUM, 0, grid->comm);
    grid_solution(grid, grid->next, steps);
    error = grid_difference(grid);
    MPI_Allreduce(&error, &result->error, 1, MPI_DOUBLE, MPI_MAX, grid->comm);
    result->good = result->error <= TOLERANCE;
    result->heat = all[0] / cells;
    result->cure = all[1] / cells;
}

static void print_result(struct options const* options, struct result const* result)
{
    printf("Plate %d x %d, %d steps, last change %.3g\n", options->size, options->size,
           options->steps, result->difference);
    printf("Mean temperature %.12f, cured %.4f %%\n", result->heat, 100 * result->cure);
    printf("Largest error against the exact solution %.3g: %s\n", result->error,
           result->good ? "right" : "WRONG");
    fflush(stdout);
}

/* Collective. Only the first process writes the report, so only there it can fail. */
static int report_run(struct grid const* grid, struct options const* options,
                      struct result const* result, char** argv, time_t start)
{
    struct measure_figures* all = NULL;
    struct report_run run = {.processes = grid->processes, .argv = argv, .start = start};
    char notes[200];
    int code = 0;
    if (grid->rank == 0) {
        all = calloc((size_t)grid->processes, sizeof *all);
        if (!all)
            MPI_Abort(grid->comm, NO_REPORT);
    }
    run.nodes = measure_count_nodes(grid->comm);
    measure_gather(grid->comm, all);
    if (grid->rank == 0) {
        snprintf(notes, sizeof notes,
                 "Plate of %d × %d cells on %d × %d processes, %d steps; largest error %.2g, %s.",
                 options->size, options->size, grid->across[0], grid->across[1], options->steps,
                 result->error, result->good ? "result right" : "RESULT WRONG");
        run.notes = notes;
        run.figures = all;
        code = report_write(&run, options->report);
        if (code == 0)
            printf("Report in %s\n", options->report);
    }
    free(all);
    return code;
}

static int run(struct options const* options, char** argv, int speak)
{
    struct grid grid;
    struct result result = {0, NAN, NAN, NAN, NAN};
    time_t const start = time(NULL);
    if (grid_create(&grid, MPI_COMM_WORLD, options->size) != 0) {
        if (speak)
            fprintf(stderr, "heat-mpi: a plate of size %d is too small for so many processes\n",
                    options->size);
        return WRONG_USAGE;
    }
    if (speak)
        report_check();
    measure_start(grid.comm);
    grid_solution(&grid, grid.now, 0);
    int code = advance(&grid, options, &result) == 0 ? DONE : WRONG_RESULT;
    if (code == DONE) {
        compare_with_solution(&grid, options->steps, &result);
        measure_stop();
        code = result.good ? DONE : WRONG_RESULT;
        if (grid.rank == 0)
            print_result(options, &result);
        if (report_run(&grid, options, &result, argv, start) != 0 && code == DONE)
            code = NO_REPORT;
    }
    grid_free(&grid);
    return code;
}

int main(int argc, char** argv)
{
    struct options options = {1536, 2400, "heat-checkpoint.bin", "heat-report.html", 0};
    int rank;
    int code = DONE;
    MPI_Init(&argc, &argv);
    MPI_Comm_rank(MPI_COMM_WORLD, &rank);
    if (read_options(argc, argv, &options, rank == 0) != 0)
        code = WRONG_USAGE;
    else if (!options.help)
        code = run(&options, argv, rank == 0);
    else if (rank == 0)
        print_help();
    MPI_Finalize();
    return code;
}
