package tabula.util;

/** Jobs that one thread gives and another one does, in order. */
public class Channel {
    private final Sequence waiting = new Sequence();
    private boolean isBusy, isClosed;

    /** The thread that does the jobs. It ends when the channel is closed and empty. */
    private class Worker extends Thread {
        Worker(String name) {
            super(name);
        }

        public void run() {
            for (;;) {
                Runnable job = take();
                if (job == null) return;
                try {
                    job.run();
                } finally {
                    done();
                }
            }
        }
    }

    public Channel(String name) {
        Worker worker = new Worker(name);
        worker.setDaemon(true);
        worker.start();
    }

    public synchronized void give(Runnable job) {
        if (isClosed) throw new IllegalStateException("closed");
        waiting.add(job);
        notifyAll();
    }

    /** The next job, or null when there will be none. */
    private synchronized Runnable take() {
        while (waiting.isEmpty() && !isClosed) pause();
        if (waiting.isEmpty()) return null;
        isBusy = true;
        return (Runnable) waiting.removeAt(0);
    }

    private synchronized void done() {
        isBusy = false;
        notifyAll();
    }

    /** Waits until all jobs are done. */
    public synchronized void settle() {
        while (isBusy || !waiting.isEmpty()) pause();
    }

    public synchronized void close() {
        isClosed = true;
        notifyAll();
    }

    private void pause() {
        try {
            wait();
        } catch (InterruptedException e) {
            throw new IllegalStateException("interrupted");
        }
    }
}
