#define _GNU_SOURCE
#include "grid.h"

#include "measure.h"

#include <math.h>
#include <stdio.h>
#include <stdlib.h>

/* Heat that flows to each neighbour in a step, by degree of difference; stable up to 0.25. */
#define FLOW 0.2

/* Cells above this temperature cure. They lie in one corner of the plate, so the processes that
   own that corner work longer than the others: an uneven load, as real problems have it. */
#define HOT 1.87
#define CURE_SUBSTEPS 4
#define CURE_RATE 0.05
#define CURE_ENERGY 4.0

static double const pi = 3.14159265358979323846;

/* Cosine waves keep their shape under diffusion on insulated cells: each step multiplies them by
   a factor that is known exactly. The start is a sum of such waves, so the solution is known. */
static struct wave {
    int along_rows;
    int along_columns;
    double height;
} const waves[] = {{1, 0, 0.5}, {0, 1, 0.5}, {6, 10, 0.1}};

static double* new_field(struct grid const* grid)
{
    size_t const cells = (size_t)(grid->rows + 2) * (size_t)(grid->columns + 2);
    double* field = calloc(cells, sizeof *field);
    if (!field) {
        fprintf(stderr, "heat-mpi: process %d has no memory for %zu cells\n", grid->rank, cells);
        MPI_Abort(grid->comm, 1);
    }
    measure_allocation((double)(cells * sizeof *field));
    return field;
}

/* Cuts cells into parts that differ by one cell at most. */
static void cut(int cells, int parts, int part, int* first, int* count)
{
    long const begin = (long)cells * part / parts;
    long const end = (long)cells * (part + 1) / parts;
    *first = (int)begin;
    *count = (int)(end - begin);
}

int grid_create(struct grid* grid, MPI_Comm comm, int size)
{
    int const periodic[2] = {0, 0};
    int place[2];
    grid->size = size;
    grid->across[0] = grid->across[1] = 0;
    MPI_Comm_size(comm, &grid->processes);
    MPI_Dims_create(grid->processes, 2, grid->across);
    if (grid->across[0] > size || grid->across[1] > size)
        return -1;
    MPI_Cart_create(comm, 2, grid->across, periodic, 1, &grid->comm);
    MPI_Comm_rank(grid->comm, &grid->rank);
    MPI_Cart_coords(grid->comm, grid->rank, 2, place);
    MPI_Cart_shift(grid->comm, 0, 1, &grid->up, &grid->down);
    MPI_Cart_shift(grid->comm, 1, 1, &grid->left, &grid->right);
    cut(size, grid->across[0], place[0], &grid->first_row, &grid->rows);
    cut(size, grid->across[1], place[1], &grid->first_column, &grid->columns);
    MPI_Type_vector(grid->rows, 1, grid->columns + 2, MPI_DOUBLE, &grid->column);
    MPI_Type_commit(&grid->column);
    grid->now = new_field(grid);
    grid->next = new_field(grid);
    grid->cure = new_field(grid);
    return 0;
}

void grid_free(struct grid* grid)
{
    free(grid->now);
    free(grid->next);
    free(grid->cure);
    MPI_Type_free(&grid->column);
    MPI_Comm_free(&grid->comm);
}

static void add_wave(struct grid const* grid, double* field, struct wave wave, int step)
{
    double const unit = pi / grid->size;
    double const factor = 1 - 2 * FLOW * (1 - cos(wave.along_rows * unit)) -
                          2 * FLOW * (1 - cos(wave.along_columns * unit));
    double const height = wave.height * pow(factor, step);
    for (int row = 0; row < grid->rows; row++) {
        double const here = height * cos(wave.along_rows * unit * (grid->first_row + row + 0.5));
        for (int column = 0; column < grid->columns; column++) {
            double const x = grid->first_column + column + 0.5;
            field[grid_at(grid, row, column)] += here * cos(wave.along_columns * unit * x);
        }
    }
}

void grid_solution(struct grid const* grid, double* field, int step)
{
    for (int row = 0; row < grid->rows; row++)
        for (int column = 0; column < grid->columns; column++)
            field[grid_at(grid, row, column)] = 1;
    for (size_t i = 0; i < sizeof waves / sizeof waves[0]; i++)
        add_wave(grid, field, waves[i], step);
}

/* Where there is no neighbour the halo repeats the edge, so that no heat leaves the plate. */
static void insulate(struct grid* grid)
{
    int const rows = grid->rows;
    int const columns = grid->columns;
    double* now = grid->now;
    for (int column = 0; column < columns; column++) {
        if (grid->up == MPI_PROC_NULL)
            now[grid_at(grid, -1, column)] = now[grid_at(grid, 0, column)];
        if (grid->down == MPI_PROC_NULL)
            now[grid_at(grid, rows, column)] = now[grid_at(grid, rows - 1, column)];
    }
    for (int row = 0; row < rows; row++) {
        if (grid->left == MPI_PROC_NULL)
            now[grid_at(grid, row, -1)] = now[grid_at(grid, row, 0)];
        if (grid->right == MPI_PROC_NULL)
            now[grid_at(grid, row, columns)] = now[grid_at(grid, row, columns - 1)];
    }
}

static void exchange_halo(struct grid* grid)
{
    struct side {
        int neighbour;
        int count;
        MPI_Datatype type;
        size_t edge;
        size_t halo;
    } const sides[4] = {
        {grid->up, grid->columns, MPI_DOUBLE, grid_at(grid, 0, 0), grid_at(grid, -1, 0)},
        {grid->down, grid->columns, MPI_DOUBLE, grid_at(grid, grid->rows - 1, 0),
         grid_at(grid, grid->rows, 0)},
        {grid->left, 1, grid->column, grid_at(grid, 0, 0), grid_at(grid, 0, -1)},
        {grid->right, 1, grid->column, grid_at(grid, 0, grid->columns - 1),
         grid_at(grid, 0, grid->columns)},
    };
    MPI_Request requests[8];
    /* What goes up arrives from below: opposite sides are 0 and 1, 2 and 3. */
    for (int i = 0; i < 4; i++)
        MPI_Irecv(grid->now + sides[i].halo, sides[i].count, sides[i].type, sides[i].neighbour,
                  i ^ 1, grid->comm, &requests[i]);
    for (int i = 0; i < 4; i++)
        MPI_Isend(grid->now + sides[i].edge, sides[i].count, sides[i].type, sides[i].neighbour, i,
                  grid->comm, &requests[4 + i]);
    MPI_Waitall(8, requests, MPI_STATUSES_IGNORE);
    insulate(grid);
}

static void diffuse(struct grid* grid)
{
    int const columns = grid->columns;
    for (int row = 0; row < grid->rows; row++) {
        double const* restrict above = grid->now + grid_at(grid, row - 1, 0);
        double const* restrict here = grid->now + grid_at(grid, row, 0);
        double const* restrict below = grid->now + grid_at(grid, row + 1, 0);
        double* restrict next = grid->next + grid_at(grid, row, 0);
        for (int i = 0; i < columns; i++)
            next[i] =
                here[i] + FLOW * (above[i] + below[i] + here[i - 1] + here[i + 1] - 4 * here[i]);
    }
}

/* Curing follows the temperature and does not act back on it. */
static long cure_hot_cells(struct grid* grid)
{
    long cells = 0;
    for (int row = 0; row < grid->rows; row++) {
        for (int column = 0; column < grid->columns; column++) {
            size_t const i = grid_at(grid, row, column);
            if (grid->now[i] <= HOT)
                continue;
            double const rate = CURE_RATE * exp(-CURE_ENERGY / grid->now[i]) / CURE_SUBSTEPS;
            for (int substep = 0; substep < CURE_SUBSTEPS; substep++)
                grid->cure[i] += rate * (1 - grid->cure[i]);
            cells++;
        }
    }
    return cells;
}

void grid_step(struct grid* grid)
{
    exchange_halo(grid);
    struct measure_mark mark = measure_begin();
    diffuse(grid);
    measure_end(MEASURE_SWEEP, mark, (double)grid->rows * grid->columns);
    double* previous = grid->now;
    grid->now = grid->next;
    grid->next = previous;
    mark = measure_begin();
    long const cured = cure_hot_cells(grid);
    measure_end(MEASURE_CURE, mark, (double)cured);
}

double grid_difference(struct grid const* grid)
{
    double largest = 0;
    for (int row = 0; row < grid->rows; row++) {
        for (int column = 0; column < grid->columns; column++) {
            size_t const i = grid_at(grid, row, column);
            double const difference = fabs(grid->now[i] - grid->next[i]);
            /* Not a number counts as infinite: no comparison and no MPI_MAX loses that. */
            largest = fmax(largest, isnan(difference) ? INFINITY : difference);
        }
    }
    return largest;
}

double grid_sum(struct grid const* grid, double const* field)
{
    double sum = 0;
    for (int row = 0; row < grid->rows; row++)
        for (int column = 0; column < grid->columns; column++)
            sum += field[grid_at(grid, row, column)];
    return sum;
}
