#pragma once

/// The chart Pump as a person would write it: a switch over the state, and in each a switch over
/// the event. What states have in common is written where it is needed.
#ifdef __cplusplus
extern "C" {
#endif

enum PumpHandState { PUMP_OFF, PUMP_IDLE, PUMP_SLOW, PUMP_FAST, PUMP_FAULT };
enum PumpHandEvent {
  PUMP_POWER,
  PUMP_START,
  PUMP_STOP,
  PUMP_FASTER,
  PUMP_SLOWER,
  PUMP_FAIL,
  PUMP_RESET
};

typedef struct PumpByHand {
  enum PumpHandState state;
} PumpByHand;

extern unsigned pump_steps;

void pump_by_hand_start(PumpByHand* pump);
int pump_by_hand(PumpByHand* pump, enum PumpHandEvent event);

#ifdef __cplusplus
}
#endif
