#include "bench/code/PumpByHand.h"

static void enter_off(PumpByHand* pump) {
  pump_steps += 1;
  pump->state = PUMP_OFF;
}

static void enter_idle(PumpByHand* pump) {
  pump_steps += 4;
  pump->state = PUMP_IDLE;
}

static void enter_slow(PumpByHand* pump) {
  pump_steps += 7;
  pump->state = PUMP_SLOW;
}

static void enter_fault(PumpByHand* pump) {
  pump_steps += 9;
  pump->state = PUMP_FAULT;
}

static void leave_running(void) { pump_steps += 6; }
static void leave_fast(void) { pump_steps += 8; }
static void leave_on(void) { pump_steps += 3; }

void pump_by_hand_start(PumpByHand* pump) { enter_off(pump); }

int pump_by_hand(PumpByHand* pump, enum PumpHandEvent event) {
  switch (pump->state) {
    case PUMP_OFF:
      if (event != PUMP_POWER) return 0;
      pump_steps += 2;
      enter_idle(pump);
      return 1;
    case PUMP_IDLE:
      switch (event) {
        case PUMP_START:
          pump_steps += 5;
          enter_slow(pump);
          return 1;
        case PUMP_POWER:
          leave_on();
          enter_off(pump);
          return 1;
        case PUMP_FAIL:
          leave_on();
          enter_fault(pump);
          return 1;
        default:
          return 0;
      }
    case PUMP_SLOW:
      switch (event) {
        case PUMP_FASTER:
          if (pump_steps % 2 != 0) return 0;
          pump_steps += 10;
          pump->state = PUMP_FAST;
          return 1;
        case PUMP_STOP:
          leave_running();
          enter_idle(pump);
          return 1;
        case PUMP_POWER:
          leave_running();
          leave_on();
          enter_off(pump);
          return 1;
        case PUMP_FAIL:
          leave_running();
          leave_on();
          enter_fault(pump);
          return 1;
        default:
          return 0;
      }
    case PUMP_FAST:
      switch (event) {
        case PUMP_SLOWER:
          leave_fast();
          enter_slow(pump);
          return 1;
        case PUMP_STOP:
          leave_fast();
          leave_running();
          enter_idle(pump);
          return 1;
        case PUMP_POWER:
          leave_fast();
          leave_running();
          leave_on();
          enter_off(pump);
          return 1;
        case PUMP_FAIL:
          leave_fast();
          leave_running();
          leave_on();
          enter_fault(pump);
          return 1;
        default:
          return 0;
      }
    case PUMP_FAULT:
      if (event != PUMP_RESET) return 0;
      pump_steps += 2;
      enter_idle(pump);
      return 1;
  }
  return 0;
}
