#include <stdio.h>

#include "Turnstile.h"

enum { coin = 50, fare = 100 };

void light(bool on) { printf("light %s\n", on ? "on" : "off"); }

void bolt(bool closed) { printf("bolt %s\n", closed ? "closed" : "open"); }

void count(Station* station) {
  station->paid += coin;
  printf("%d cents\n", station->paid);
}

bool paid(const Station* station) { return station->paid >= fare; }

void admit(Station* station) {
  station->paid -= fare;
  station->guests++;
}

void report(const Station* station) { printf("%d guests\n", station->guests); }

int main(void) {
  const TurnstileEvent events[] = {TurnstileEvent_Coin,   TurnstileEvent_Pass, TurnstileEvent_Coin,
                                   TurnstileEvent_Pass,   TurnstileEvent_Key,  TurnstileEvent_Coin,
                                   TurnstileEvent_Timeout};
  Station station = {0, 0};
  Turnstile turnstile;
  Turnstile_Init(&turnstile, &station);
  Turnstile_Start(&turnstile);
  for (size_t i = 0; i < sizeof events / sizeof events[0]; i++) {
    Turnstile_Dispatch(&turnstile, events[i]);
  }
  printf(Turnstile_IsIn(&turnstile, TurnstileState_InService) ? "in service\n" : "closed\n");
  return 0;
}
