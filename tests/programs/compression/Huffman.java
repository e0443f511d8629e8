import java.io.IOException;

/** The code tree goes in front of the data. */
class Huffman implements Codec {
    public String name() {
        return "huffman";
    }

    private static Tree build(int[] counts) {
        Tree[] heap = new Tree[counts.length];
        int n = 0;
        for (int i = 0; i < counts.length; i++) if (counts[i] > 0) heap[n++] = new Tree(i, counts[i]);
        if (n == 0) return null;
        while (n > 1) {
            Tree a = takeLeast(heap, n--), b = takeLeast(heap, n--);
            heap[n++] = new Tree(a, b);
        }
        return heap[0];
    }

    /** The lightest tree, the oldest of equals; the last one moves into its place. */
    private static Tree takeLeast(Tree[] heap, int n) {
        int best = 0;
        for (int i = 1; i < n; i++)
            if (heap[i].weight < heap[best].weight || heap[i].weight == heap[best].weight && heap[i].symbol < heap[best].symbol) best = i;
        Tree t = heap[best];
        heap[best] = heap[n - 1];
        return t;
    }

    public byte[] pack(byte[] data) {
        int[] counts = new int[256];
        for (int i = 0; i < data.length; i++) counts[data[i] & 0xFF]++;
        BitWriter out = new BitWriter();
        out.put(data.length, 32);
        Tree tree = build(counts);
        if (tree == null) return out.bytes();
        int[] codes = new int[256];
        byte[] lengths = new byte[256];
        tree.describe(out);
        tree.assign(codes, lengths, 0, (byte) 0);
        for (int i = 0; i < data.length; i++) {
            int b = data[i] & 0xFF;
            out.put(codes[b], lengths[b]);
        }
        return out.bytes();
    }

    public byte[] unpack(byte[] packed) throws IOException {
        BitReader in = new BitReader(packed);
        byte[] out = new byte[in.get(32)];
        if (out.length == 0) return out;
        Tree root = Tree.read(in);
        for (int i = 0; i < out.length; i++) {
            Tree t = root;
            while (!t.leaf()) t = in.get() == 0 ? t.zero : t.one;
            out[i] = (byte) t.symbol;
        }
        return out;
    }
}

class Tree {
    final int symbol, weight;
    final Tree zero, one;

    Tree(int symbol, int weight) {
        this.symbol = symbol;
        this.weight = weight;
        zero = one = null;
    }

    Tree(Tree zero, Tree one) {
        this.zero = zero;
        this.one = one;
        symbol = Math.min(zero.symbol, one.symbol);
        weight = zero.weight + one.weight;
    }

    boolean leaf() {
        return zero == null;
    }

    void describe(BitWriter out) {
        if (leaf()) {
            out.put(1, 1);
            out.put(symbol, 8);
        } else {
            out.put(0, 1);
            zero.describe(out);
            one.describe(out);
        }
    }

    static Tree read(BitReader in) throws IOException {
        return in.get() == 1 ? new Tree(in.get(8), 0) : new Tree(read(in), read(in));
    }

    void assign(int[] codes, byte[] lengths, int code, byte length) {
        if (leaf()) {
            codes[symbol] = code;
            lengths[symbol] = length;
            return;
        }
        length++;
        zero.assign(codes, lengths, code << 1, length);
        one.assign(codes, lengths, code << 1 | 1, length);
    }
}
