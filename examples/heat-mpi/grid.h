/* The plate: a square of size by size cells with insulated edges, cut into one block a process. */
#ifndef HEAT_GRID_H
#define HEAT_GRID_H

#include <mpi.h>
#include <stddef.h>

struct grid {
    MPI_Comm comm; /* processes in rows and columns */
    int rank;
    int processes;
    int across[2]; /* processes in a column, in a row */
    int size;      /* cells along one side of the plate */
    int first_row; /* this process's block of the plate */
    int first_column;
    int rows;
    int columns;
    int up, down, left, right; /* neighbours; MPI_PROC_NULL at an edge of the plate */
    MPI_Datatype column;       /* a column of the block */
    double* now;               /* temperature; a halo of one cell surrounds the block */
    double* next;              /* where the next step is put; holds the previous one after it */
    double* cure;              /* 0 raw to 1 hard; laid out as the temperature */
};

/* Collective. Gives -1 if the plate has too few cells for so many processes. */
int grid_create(struct grid* grid, MPI_Comm comm, int size);
void grid_free(struct grid* grid);

/* Index of a cell of the block; -1 and rows, columns are the halo. */
static inline size_t grid_at(struct grid const* grid, int row, int column)
{
    return (size_t)(row + 1) * (size_t)(grid->columns + 2) + (size_t)(column + 1);
}

/* Sets a field to the solution after so many steps. */
void grid_solution(struct grid const* grid, double* field, int step);

/* Collective with the neighbours. Goes one step ahead. */
void grid_step(struct grid* grid);

/* Largest difference between now and next, in this block. */
double grid_difference(struct grid const* grid);

/* Sum over the cells of this block. */
double grid_sum(struct grid const* grid, double const* field);

#endif
