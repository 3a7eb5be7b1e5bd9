/* A mutex that says its name when nobody gives it back. For C files of the kernel modules. */
#pragma once

#include <linux/errno.h>
#include <linux/mutex.h>
#include <linux/printk.h>
#include <linux/sched.h>
#include <linux/string.h>
#include <linux/workqueue.h>

/* Nothing that is done under one takes as long without progress. */
#define NAMED_LOCK_SECONDS 10

struct named_lock {
    struct mutex mutex;
    struct delayed_work watch; /* waits while the lock is held */
    const char *name;
    char holder[TASK_COMM_LEN];
    int holder_pid;
};

#define DEFINE_NAMED_LOCK(lock, text)                                           \
    static struct named_lock lock = {                                           \
        .mutex = __MUTEX_INITIALIZER(lock.mutex),                               \
        .watch = __DELAYED_WORK_INITIALIZER(lock.watch, named_lock_is_late, 0), \
        .name = text,                                                           \
    }

static void named_lock_is_late(struct work_struct *work)
{
    struct named_lock *lock = container_of(to_delayed_work(work), struct named_lock, watch);

    pr_err("ldsdk: stuck: %s is held for %d s, by %s (pid %d)\n", lock->name, NAMED_LOCK_SECONDS,
           lock->holder, lock->holder_pid);
}

static inline void named_lock_taken(struct named_lock *lock)
{
    memcpy(lock->holder, current->comm, sizeof(lock->holder));
    lock->holder_pid = current->pid;
    schedule_delayed_work(&lock->watch, NAMED_LOCK_SECONDS * HZ);
}

static inline void named_lock_take(struct named_lock *lock)
{
    mutex_lock(&lock->mutex);
    named_lock_taken(lock);
}

/* 0, or -EINTR for a process that is killed while it waits. */
static inline int named_lock_take_killable(struct named_lock *lock)
{
    if (mutex_lock_killable(&lock->mutex) != 0) {
        return -EINTR;
    }
    named_lock_taken(lock);
    return 0;
}

/* By the holder of work that takes its time, and is not stuck. */
static inline void named_lock_progress(struct named_lock *lock)
{
    mod_delayed_work(system_wq, &lock->watch, NAMED_LOCK_SECONDS * HZ);
}

static inline void named_lock_give(struct named_lock *lock)
{
    cancel_delayed_work(&lock->watch);
    mutex_unlock(&lock->mutex);
}

/* Before the module goes. */
static inline void named_lock_end(struct named_lock *lock)
{
    cancel_delayed_work_sync(&lock->watch);
}
