/* The checkpoint: one file of all processes, with the temperature and the cure of the plate. */
#ifndef HEAT_CHECKPOINT_H
#define HEAT_CHECKPOINT_H

#include "grid.h"

/* Collective. Writes the file anew and waits until it is on the disk. Gives 0, or -1 on every
   process after any of them has failed and said why. */
int checkpoint_write(struct grid const* grid, char const* path, int step);

/* Collective. Reads the file back and compares it with what the processes hold. As above. */
int checkpoint_verify(struct grid const* grid, char const* path);

#endif
