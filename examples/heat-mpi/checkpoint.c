#define _GNU_SOURCE
#include "checkpoint.h"

#include "measure.h"

#include <errno.h>
#include <fcntl.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#define FIELDS 2
#define READ_WORDS (128 * 1024)

struct header {
    char magic[8];
    uint64_t size;
    uint64_t step;
    uint64_t fields;
};

static int complain(struct grid const* grid, char const* action, char const* path)
{
    fprintf(stderr, "heat-mpi: process %d cannot %s %s: %s\n", grid->rank, action, path,
            strerror(errno));
    return -1;
}

/* A failure of one process is a failure of all, or the others would wait for it. */
static int agree(struct grid const* grid, int result)
{
    int worst = -1;
    MPI_Allreduce(&result, &worst, 1, MPI_INT, MPI_MIN, grid->comm);
    return worst;
}

static int write_fully(int file, void const* data, size_t bytes, off_t offset)
{
    char const* from = data;
    while (bytes > 0) {
        ssize_t const written = pwrite(file, from, bytes, offset);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return -1;
        from += written;
        bytes -= (size_t)written;
        offset += written;
    }
    return 0;
}

static int read_fully(int file, void* data, size_t bytes, off_t offset)
{
    char* to = data;
    while (bytes > 0) {
        ssize_t const got = pread(file, to, bytes, offset);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0) {
            if (got == 0)
                errno = ENODATA;
            return -1;
        }
        to += got;
        bytes -= (size_t)got;
        offset += got;
    }
    return 0;
}

static int write_header(struct grid const* grid, char const* path, int step)
{
    struct header header = {"HEATGRD", (uint64_t)grid->size, (uint64_t)step, FIELDS};
    struct measure_mark const mark = measure_begin();
    int const file = open(path, O_WRONLY | O_CREAT | O_TRUNC, 0666);
    int result = file < 0 ? -1 : write_fully(file, &header, sizeof header, 0);
    if (file >= 0 && close(file) != 0)
        result = -1;
    measure_end(MEASURE_WRITE, mark, result == 0 ? (double)sizeof header : 0);
    return result == 0 ? 0 : complain(grid, "create", path);
}

static int write_rows(struct grid const* grid, int file, double const* field, int number)
{
    size_t const bytes = (size_t)grid->columns * sizeof *field;
    off_t const size = grid->size;
    for (int row = 0; row < grid->rows; row++) {
        off_t const line = number * size + grid->first_row + row;
        off_t const place = (off_t)sizeof(struct header) +
                            (line * size + grid->first_column) * (off_t)sizeof *field;
        if (write_fully(file, field + grid_at(grid, row, 0), bytes, place) != 0)
            return -1;
    }
    return 0;
}

static int write_block(struct grid const* grid, char const* path)
{
    double const bytes = (double)FIELDS * grid->rows * grid->columns * (double)sizeof(double);
    struct measure_mark mark = measure_begin();
    int const file = open(path, O_WRONLY);
    if (file < 0)
        return complain(grid, "open", path);
    int result = write_rows(grid, file, grid->now, 0);
    if (result == 0)
        result = write_rows(grid, file, grid->cure, 1);
    measure_end(MEASURE_WRITE, mark, result == 0 ? bytes : 0);
    mark = measure_begin();
    if (result == 0)
        result = fsync(file);
    if (result != 0)
        complain(grid, "write", path);
    if (close(file) != 0 && result == 0)
        result = complain(grid, "close", path);
    measure_end(MEASURE_SYNC, mark, 0);
    return result;
}

int checkpoint_write(struct grid const* grid, char const* path, int step)
{
    if (agree(grid, grid->rank == 0 ? write_header(grid, path, step) : 0) != 0)
        return -1;
    return agree(grid, write_block(grid, path));
}

/* Doesn't depend on the order of the words, so each process may read another part than it wrote. */
static uint64_t sum_of_words(uint64_t const* words, size_t count)
{
    uint64_t sum = 0;
    for (size_t i = 0; i < count; i++)
        sum += words[i];
    return sum;
}

static uint64_t sum_of_block(struct grid const* grid)
{
    double const* const fields[FIELDS] = {grid->now, grid->cure};
    uint64_t sum = 0;
    for (int number = 0; number < FIELDS; number++) {
        for (int row = 0; row < grid->rows; row++) {
            for (int column = 0; column < grid->columns; column++) {
                uint64_t word;
                memcpy(&word, fields[number] + grid_at(grid, row, column), sizeof word);
                sum += word;
            }
        }
    }
    return sum;
}

static int read_part(struct grid const* grid, char const* path, uint64_t* sum)
{
    uint64_t const total = (uint64_t)FIELDS * (uint64_t)grid->size * (uint64_t)grid->size;
    uint64_t word = total * (uint64_t)grid->rank / (uint64_t)grid->processes;
    uint64_t const end = total * (uint64_t)(grid->rank + 1) / (uint64_t)grid->processes;
    uint64_t* buffer = malloc(READ_WORDS * sizeof *buffer);
    int const file = open(path, O_RDONLY);
    int result = file < 0 || !buffer ? complain(grid, "open", path) : 0;
    while (result == 0 && word < end) {
        size_t const count = end - word < READ_WORDS ? (size_t)(end - word) : READ_WORDS;
        size_t const bytes = count * sizeof *buffer;
        struct measure_mark const mark = measure_begin();
        result = read_fully(file, buffer, bytes, (off_t)(sizeof(struct header) + 8 * word));
        measure_end(MEASURE_READ, mark, result == 0 ? (double)bytes : 0);
        if (result != 0)
            complain(grid, "read", path);
        else
            *sum += sum_of_words(buffer, count);
        word += count;
    }
    if (file >= 0)
        close(file);
    free(buffer);
    return result;
}

int checkpoint_verify(struct grid const* grid, char const* path)
{
    uint64_t mine[2] = {sum_of_block(grid), 0}; /* held, read */
    uint64_t all[2] = {0, 0};
    int equal = 0;
    if (agree(grid, read_part(grid, path, &mine[1])) != 0)
        return -1;
    MPI_Reduce(mine, all, 2, MPI_UINT64_T, MPI_SUM, 0, grid->comm);
    if (grid->rank == 0) {
        equal = all[0] == all[1];
        if (!equal)
            fprintf(stderr, "heat-mpi: %s does not hold what was written\n", path);
    }
    MPI_Bcast(&equal, 1, MPI_INT, 0, grid->comm);
    return equal ? 0 : -1;
}
