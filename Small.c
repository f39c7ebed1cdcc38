/**
 * @file
 * Untitled
 *
 * Author: Untitled
 *
 * Made from Small.mrv. Change the chart and generate this file again: changes made here are lost.
 */
#include "Small.h"

static void machine_step(Small *self, SmallEvent event)
{
    (void)self;
    (void)event;
}

static bool machine_wait(Small *self, SmallEvent event)
{
#if SMALL_QUEUE_SIZE > 0
    if (self->count < SMALL_QUEUE_SIZE) {
        self->queue[(self->first + self->count) % SMALL_QUEUE_SIZE] = (uint8_t)event;
        self->count++;
        return true;
    }
#else
    (void)self;
    (void)event;
#endif
    return false;
}

static void machine_handle_waiting(Small *self)
{
#if SMALL_QUEUE_SIZE > 0
    while (self->count > 0) {
        SmallEvent event = (SmallEvent)self->queue[self->first];
        self->first = (uint8_t)((self->first + 1) % SMALL_QUEUE_SIZE);
        self->count--;
        machine_step(self, event);
    }
#else
    (void)self;
#endif
}

void Small_Init(Small *self, SMALL_CONTEXT *context)
{
    self->context = context;
    self->state = SmallState_None;
    self->busy = false;
}

void Small_Start(Small *self)
{
    if (self->busy) {
        return;
    }
    self->busy = true;
    self->state = SmallState_None;
#if SMALL_QUEUE_SIZE > 0
    self->first = 0;
    self->count = 0;
#endif
    self->state = SmallState_State;
    machine_handle_waiting(self);
    self->busy = false;
}

bool Small_Dispatch(Small *self, SmallEvent event)
{
    if (self->busy) {
        return machine_wait(self, event);
    }
    if (self->state == SmallState_None) {
        return false;
    }
    self->busy = true;
    machine_step(self, event);
    machine_handle_waiting(self);
    self->busy = false;
    return true;
}

SmallState Small_CurrentState(const Small *self)
{
    return (SmallState)self->state;
}

bool Small_IsIn(const Small *self, SmallState state)
{
    switch (state) {
    default:
        return (SmallState)self->state == state;
    }
}

bool Small_IsFinished(const Small *self)
{
    (void)self;
    return false;
}
