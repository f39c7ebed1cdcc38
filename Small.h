/**
 * @file
 * Untitled
 *
 * Author: Untitled
 *
 * Made from Small.mrv. Change the chart and generate this file again: changes made here are lost.
 */
#ifndef SMALL_H
#define SMALL_H

#include <stdbool.h>
#include <stdint.h>

/** The type of what the code of the chart works on, as self->context. */
#ifndef SMALL_CONTEXT
#define SMALL_CONTEXT void
#endif

/** How many events can wait that the code of the chart sends itself, 0 to 255. */
#ifndef SMALL_QUEUE_SIZE
#define SMALL_QUEUE_SIZE 8
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef enum SmallEvent {
    SmallEvent_None
} SmallEvent;

/** The states, each in front of those inside it. */
typedef enum SmallState {
    SmallState_None,
    SmallState_State
} SmallState;

/** A machine. Its members but for the context are its own. */
typedef struct Small {
    SMALL_CONTEXT *context;
    uint8_t state;
    bool busy;
#if SMALL_QUEUE_SIZE > 0
    uint8_t first;
    uint8_t count;
    uint8_t queue[SMALL_QUEUE_SIZE];
#endif
} Small;

/** Makes a machine ready to start. The context, which may be null, is not owned. */
void Small_Init(Small *self, SMALL_CONTEXT *context);

/** Enters the initial state. A machine that runs or has ended starts anew. */
void Small_Start(Small *self);

/**
 * Handles an event. From within the code of the chart it waits until the step at hand is
 * done. False if it is refused: the machine doesn't run, or no more events can wait.
 */
bool Small_Dispatch(Small *self, SmallEvent event);

/** The innermost active state. */
SmallState Small_CurrentState(const Small *self);

/** True if the state is active, or one inside it. */
bool Small_IsIn(const Small *self, SmallState state);

/** True once the machine has come to its end. */
bool Small_IsFinished(const Small *self);

#ifdef __cplusplus
}
#endif

#endif
