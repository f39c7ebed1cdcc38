/* What the turnstile works on: the texts of the chart know it as self->context. */
#ifndef STATION_H
#define STATION_H

#include <stdbool.h>

typedef struct Station {
  int paid;   /* cents in the slot */
  int guests; /* who have gone through */
} Station;

/* Tells the generated code the type of its context. */
#define TURNSTILE_CONTEXT Station

void light(bool on);
void bolt(bool closed);
void count(Station* station);
bool paid(const Station* station);
void admit(Station* station);
void report(const Station* station);

#endif
