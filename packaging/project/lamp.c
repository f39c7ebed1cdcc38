#include <stdio.h>

#include "Lamp.h"

void say(const char *text) { printf(" %s", text); }

int main(void) {
  Lamp lamp;
  printf("c");
  Lamp_Init(&lamp, NULL);
  Lamp_Start(&lamp);
  Lamp_Dispatch(&lamp, LampEvent_Press);
  Lamp_Dispatch(&lamp, LampEvent_Press);
  printf("\n");
  return 0;
}
