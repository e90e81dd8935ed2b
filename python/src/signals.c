/* Ctrl-C while the library waits where nobody can look after signals: the recording is interrupted, too. */
#include "binding.h"

#include <signal.h>

static ast_recording_t *volatile waiting; /* null while nobody does */
static struct sigaction usual;

static void interrupt(int number) {
    ast_recording_interrupt(waiting);
    usual.sa_handler(number);
}

static bool is_function(const struct sigaction *action) {
    return !(action->sa_flags & SA_SIGINFO) && action->sa_handler != SIG_DFL && action->sa_handler != SIG_IGN;
}

bool begin_wait(ast_recording_t *recording) {
    if (waiting || sigaction(SIGINT, NULL, &usual) != 0 || !is_function(&usual)) return false;
    waiting = recording;
    struct sigaction ours = usual;
    ours.sa_handler = interrupt;
    if (sigaction(SIGINT, &ours, NULL) != 0) waiting = NULL;
    return waiting;
}

void end_wait(bool has_begun) {
    if (!has_begun) return;
    sigaction(SIGINT, &usual, NULL);
    waiting = NULL;
}
