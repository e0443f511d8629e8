/** A move is three small numbers in an int: from, to, and the piece that a pawn becomes. */
final class Move {
    static int make(int from, int to, int promotion) {
        return from | to << 7 | promotion << 14;
    }

    static String text(int move) {
        int from = move & 0x7F, to = move >>> 7 & 0x7F, p = move >> 14;
        return "" + (char) ('a' + (from & 7)) + (char) ('1' + (from >> 4)) + (char) ('a' + (to & 7)) + (char) ('1' + (to >> 4)) + (p == 0 ? "" : "" + " pnbrqk".charAt(p));
    }
}

/** A board of 128 squares, half of them off the board, so that one `and` finds the edge. */
class Board {
    static final byte NONE = 0, PAWN = 1, KNIGHT = 2, BISHOP = 3, ROOK = 4, QUEEN = 5, KING = 6, BLACK = 8;
    private static final int[][] STEPS = { null, null, { 14, 18, 31, 33, -14, -18, -31, -33 }, { 15, 17, -15, -17 }, { 1, 16, -1, -16 },
        { 1, 15, 16, 17, -1, -15, -16, -17 }, { 1, 15, 16, 17, -1, -15, -16, -17 } };
    private static final int WHITE_SHORT = 1, WHITE_LONG = 2, BLACK_SHORT = 4, BLACK_LONG = 8;
    private byte[] squares = new byte[128];
    private byte side;
    private int castling, passant = -1;
    private final int[] kings = new int[2];

    Board(String fen) {
        int rank = 7, file = 0, i = 0;
        for (char c; (c = fen.charAt(i)) != ' '; i++) {
            if (c == '/') {
                rank--;
                file = 0;
            } else if (c >= '1' && c <= '8') file += c - '0';
            else {
                byte piece = (byte) " pnbrqk".indexOf(Character.toLowerCase(c));
                if (Character.isLowerCase(c)) piece |= BLACK;
                int square = rank << 4 | file++;
                squares[square] = piece;
                if ((piece & 7) == KING) kings[piece >> 3] = square;
            }
        }
        side = fen.charAt(++i) == 'b' ? BLACK : 0;
        for (i += 2; fen.charAt(i) != ' '; i++)
            switch (fen.charAt(i)) {
                case 'K': castling |= WHITE_SHORT; break;
                case 'Q': castling |= WHITE_LONG; break;
                case 'k': castling |= BLACK_SHORT; break;
                case 'q': castling |= BLACK_LONG;
            }
        if (fen.charAt(++i) != '-') passant = fen.charAt(i) - 'a' | fen.charAt(i + 1) - '1' << 4;
    }

    private Board(Board b) {
        System.arraycopy(b.squares, 0, squares, 0, 128);
        side = b.side;
        castling = b.castling;
        passant = b.passant;
        kings[0] = b.kings[0];
        kings[1] = b.kings[1];
    }

    boolean attacked(int square, int by) {
        for (int piece = KNIGHT; piece <= KING; piece++) {
            int[] steps = STEPS[piece];
            rays:
            for (int i = 0; i < steps.length; i++) {
                int to = square;
                do {
                    if (((to += steps[i]) & 0x88) != 0) continue rays;
                    if (squares[to] == (piece | by)) return true;
                } while (squares[to] == NONE && piece >= BISHOP && piece <= QUEEN);
            }
        }
        int down = by == 0 ? -16 : 16;
        for (int d = -1; d <= 1; d += 2) if ((square + down + d & 0x88) == 0 && squares[square + down + d] == (PAWN | by)) return true;
        return false;
    }

    boolean check() {
        return attacked(kings[side >> 3], side ^ BLACK);
    }

    private int pawnMoves(int from, int to, int[] moves, int n) {
        int rank = to >> 4;
        if (rank != 0 && rank != 7) moves[n++] = Move.make(from, to, 0);
        else for (int p = QUEEN; p >= KNIGHT; p--) moves[n++] = Move.make(from, to, p);
        return n;
    }

    /** Fills in the moves without regard to check, and says how many there are. */
    int moves(int[] moves) {
        int n = 0, other = side ^ BLACK;
        for (int from = 0; from < 128; from = from + 9 & ~8) {
            int piece = squares[from];
            if (piece == NONE || (piece & BLACK) != side) continue;
            piece &= 7;
            if (piece == PAWN) {
                int up = side == 0 ? 16 : -16, to = from + up;
                if (squares[to] == NONE) {
                    n = pawnMoves(from, to, moves, n);
                    if (from >> 4 == (side == 0 ? 1 : 6) && squares[to + up] == NONE) moves[n++] = Move.make(from, to + up, 0);
                }
                for (int d = -1; d < 2; d += 2) {
                    int hit = to + d;
                    if ((hit & 0x88) == 0 && (squares[hit] != NONE && (squares[hit] & BLACK) == other || hit == passant)) n = pawnMoves(from, hit, moves, n);
                }
                continue;
            }
            int[] steps = STEPS[piece];
            for (int i = 0; i < steps.length; i++) {
                for (int to = from + steps[i]; (to & 0x88) == 0; to += steps[i]) {
                    if (squares[to] != NONE && (squares[to] & BLACK) == side) break;
                    moves[n++] = Move.make(from, to, 0);
                    if (squares[to] != NONE || piece == KNIGHT || piece == KING) break;
                }
            }
            if (piece == KING && !attacked(from, other)) {
                int rights = side == 0 ? castling : castling >> 2;
                if ((rights & 1) != 0 && squares[from + 1] == NONE && squares[from + 2] == NONE && !attacked(from + 1, other)) moves[n++] = Move.make(from, from + 2, 0);
                if ((rights & 2) != 0 && squares[from - 1] == NONE && squares[from - 2] == NONE && squares[from - 3] == NONE && !attacked(from - 1, other))
                    moves[n++] = Move.make(from, from - 2, 0);
            }
        }
        return n;
    }

    /** The board after the move, or null if the own king would stand in check. */
    Board after(int move) {
        Board b = new Board(this);
        int from = move & 0x7f, to = move >> 7 & 0x7f, promotion = move >> 14;
        byte piece = squares[from];
        b.squares[to] = promotion == 0 ? piece : (byte) (promotion | side);
        b.squares[from] = NONE;
        b.passant = -1;
        switch (piece & 7) {
            case PAWN:
                if (to == passant) b.squares[to + (side == 0 ? -16 : 16)] = NONE;
                else if (Math.abs(to - from) == 32) b.passant = from + to >> 1;
                break;
            case KING:
                b.kings[side >> 3] = to;
                b.castling &= side == 0 ? ~(WHITE_SHORT | WHITE_LONG) : ~(BLACK_SHORT | BLACK_LONG);
                if (to - from == 2) {
                    b.squares[to - 1] = b.squares[to + 1];
                    b.squares[to + 1] = NONE;
                } else if (to - from == -2) {
                    b.squares[to + 1] = b.squares[to - 2];
                    b.squares[to - 2] = NONE;
                }
        }
        b.castling &= lost(from) & lost(to);
        if (b.check()) return null;
        b.side ^= BLACK;
        return b;
    }

    private static int lost(int square) {
        switch (square) {
            case 0x00: return ~WHITE_LONG;
            case 0x07: return ~WHITE_SHORT;
            case 0x70: return ~BLACK_LONG;
            case 0x77: return ~BLACK_SHORT;
            default: return ~0;
        }
    }

    long count(int depth) {
        if (depth == 0) return 1;
        int[] moves = new int[256];
        long total = 0;
        for (int i = moves(moves); --i >= 0; ) {
            Board b = after(moves[i]);
            if (b != null) total += b.count(depth - 1);
        }
        return total;
    }

    /** A forced mate in so many own moves: the first move of it, 0 if there is none. */
    int mate(int depth) {
        int[] moves = new int[256];
        int n = moves(moves);
        next:
        for (int i = 0; i < n; i++) {
            Board b = after(moves[i]);
            if (b == null) continue;
            int[] replies = new int[256];
            int m = b.moves(replies), legal = 0;
            for (int k = 0; k < m; k++) {
                Board c = b.after(replies[k]);
                if (c == null) continue;
                legal++;
                if (depth == 1 || c.mate(depth - 1) == 0) continue next;
            }
            if (legal > 0 || b.check()) return moves[i];
        }
        return 0;
    }

    public String toString() {
        StringBuffer s = new StringBuffer();
        for (int rank = 7; rank >= 0; rank--) {
            for (int file = 0; file < 8; file++) {
                int p = squares[rank << 4 | file];
                char c = ".pnbrqk".charAt(p & 7);
                s.append((p & BLACK) == 0 ? Character.toUpperCase(c) : c);
            }
            s.append(rank > 0 ? '/' : ' ');
        }
        return s.append(side == 0 ? 'w' : 'b').toString();
    }
}

/** n queens that leave each other alone, with bits for the threatened columns and diagonals. */
class Queens {
    private final int all;
    private int first[];
    private final int[] chosen;

    Queens(int n) {
        all = (1 << n) - 1;
        chosen = new int[n];
    }

    int solve() {
        return place(0, 0, 0, 0);
    }

    private int place(int row, int columns, int left, int right) {
        if (columns == all) {
            if (first == null) first = (int[]) chosen.clone();
            return 1;
        }
        int count = 0, free = all & ~(columns | left | right);
        while (free != 0) {
            int bit = free & -free;
            free ^= bit;
            chosen[row] = bit;
            count += place(row + 1, columns | bit, (left | bit) << 1, (right | bit) >>> 1);
        }
        return count;
    }

    String first() {
        String s = "";
        for (int i = 0; i < first.length; i++) {
            int column = 1;
            for (int b = first[i]; (b >>= 1) != 0; ) column++;
            s += column;
        }
        return s;
    }
}

class Knight {
    private static final byte[] X = { 1, 2, 2, 1, -1, -2, -2, -1 }, Y = { 2, 1, -1, -2, -2, -1, 1, 2 };

    /** A tour by always going where fewest ways lead on; the visited squares, or fewer if it got stuck. */
    static int[][] tour(int n) {
        int[][] step = new int[n][n];
        int x = 0, y = 0, k = 1;
        for (step[0][0] = 1; ; step[y][x] = ++k) {
            int best = 9, bx = -1, by = -1;
            for (int i = 0; i < 8; i++) {
                int tx = x + X[i], ty = y + Y[i];
                if (!free(step, tx, ty)) continue;
                int ways = 0;
                for (int j = 0; j < 8; j++) if (free(step, tx + X[j], ty + Y[j])) ways++;
                if (ways < best) {
                    best = ways;
                    bx = tx;
                    by = ty;
                }
            }
            if (best == 9) return step;
            x = bx;
            y = by;
        }
    }

    private static boolean free(int[][] step, int x, int y) {
        return x >= 0 && y >= 0 && y < step.length && x < step[y].length && step[y][x] == 0;
    }
}

public class Main {
    public static void main(String[] args) {
        String[] positions = { "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1", "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1",
            "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1", "r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w kq - 0 1", "rnbq1k1r/pp1Pbppp/2p5/8/2B5/8/PPP1NnPP/RNBQK2R w KQ - 1 8" };
        for (int i = 0; i < positions.length; i++) {
            Board b = new Board(positions[i]);
            System.out.println(b + ": " + b.count(1) + " " + b.count(2) + " " + b.count(3));
        }
        String[] problems = { "6k1/5ppp/8/8/8/8/8/R3K3 w - - 0 1", "7k/8/8/8/8/8/R7/1R5K w - - 0 1", "8/8/8/8/8/5k1q/8/6K1 b - - 0 1" };
        for (int i = 0; i < problems.length; i++) {
            Board b = new Board(problems[i]);
            int depth = 1, move = 0;
            while (depth < 3 && (move = b.mate(depth)) == 0) depth++;
            System.out.println(b + ": " + (move == 0 ? "no mate" : Move.text(move) + " mates in " + depth));
        }
        for (int n = 4; n <= 9; n++) {
            Queens q = new Queens(n);
            System.out.print(n + " queens: " + q.solve() + " ways, first " + q.first() + "; ");
        }
        System.out.println();
        int[][] tour = Knight.tour(6);
        for (int y = 0; y < 6; y++) {
            for (int x = 0; x < 6; x++) System.out.print((tour[y][x] < 10 ? "  " : " ") + tour[y][x]);
            System.out.println();
        }
    }
}
