package tabula.file;

import java.util.Hashtable;
import tabula.model.Sheet;
import tabula.util.Channel;

/** Keeps what was saved, by name. The work is done by a thread of its own, while the user goes on. */
public class Archive {
    private final Hashtable texts = new Hashtable();
    private final Channel jobs = new Channel("archive");

    /** Told when something is kept. */
    public interface Receipt {
        void kept(String name, int lines);
    }

    /** What is waiting to be kept: a picture of the sheet as it was when it was asked for. */
    private class Job implements Runnable {
        private final String name, text;
        private final Receipt receipt;

        Job(String name, String text, Receipt receipt) {
            this.name = name;
            this.text = text;
            this.receipt = receipt;
        }

        public void run() {
            texts.put(name, text);
            receipt.kept(name, lines());
        }

        private int lines() {
            int lines = 0;
            for (int at = text.indexOf('\n'); at >= 0; at = text.indexOf('\n', at + 1)) lines++;
            return lines;
        }
    }

    public void save(String name, Sheet sheet, Format format, Receipt receipt) {
        jobs.give(new Job(name, format.write(sheet), receipt));
    }

    /** What was kept under the name; null if nothing was. Waits for what is still being done. */
    public String text(String name) {
        jobs.settle();
        return (String) texts.get(name);
    }

    /** Waits until all is kept. */
    public void settle() {
        jobs.settle();
    }

    public void close() {
        jobs.settle();
        jobs.close();
    }
}
