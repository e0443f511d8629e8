/** Exact fractions and matrices of them, complex numbers and the fast Fourier transform, and some plain numerics. */
final class Fraction {
    static final Fraction ZERO = new Fraction(0, 1), ONE = new Fraction(1, 1);
    private final long p, q;

    Fraction(long p, long q) {
        if (q == 0) throw new ArithmeticException(p + "/0");
        long g = gcd(p < 0 ? -p : p, q < 0 ? -q : q);
        if (q < 0) g = -g;
        this.p = p / g;
        this.q = q / g;
    }

    private static long gcd(long a, long b) {
        return b == 0 ? a : gcd(b, a % b);
    }

    Fraction add(Fraction f) {
        return new Fraction(p * f.q + f.p * q, q * f.q);
    }

    Fraction subtract(Fraction f) {
        return add(f.negate());
    }

    Fraction multiply(Fraction f) {
        return new Fraction(p * f.p, q * f.q);
    }

    Fraction divide(Fraction f) {
        return new Fraction(p * f.q, q * f.p);
    }

    Fraction negate() {
        return new Fraction(-p, q);
    }

    boolean isZero() {
        return p == 0L;
    }

    public boolean equals(Object o) {
        return o instanceof Fraction && ((Fraction) o).p == p && ((Fraction) o).q == q;
    }

    public int hashCode() {
        return (int) (p ^ q << 16);
    }

    public String toString() {
        return q == 1 ? "" + p : p + "/" + q;
    }
}

class SingularException extends Exception {
    final int rank;

    SingularException(int rank) {
        this.rank = rank;
    }

    public String getMessage() {
        return "singular, rank " + rank;
    }
}

class Matrix {
    final Fraction[][] m;

    Matrix(int rows, int columns) {
        m = new Fraction[rows][columns];
        for (int i = 0; i < rows; i++) for (int j = 0; j < columns; j++) m[i][j] = i == j ? Fraction.ONE : Fraction.ZERO;
    }

    Matrix(int[][] a) {
        this(a.length, a[0].length);
        for (int i = 0; i < a.length; i++) for (int j = 0; j < a[i].length; j++) m[i][j] = new Fraction(a[i][j], 1);
    }

    static Matrix hilbert(int n) {
        Matrix h = new Matrix(n, n);
        for (int i = 0; i < n; i++) for (int j = 0; j < n; ++j) h.m[i][j] = new Fraction(1, i + j + 1);
        return h;
    }

    Matrix times(Matrix b) {
        if (m[0].length != b.m.length) throw new IllegalArgumentException(m[0].length + " columns by " + b.m.length + " rows");
        Matrix r = new Matrix(m.length, b.m[0].length);
        for (int i = 0; i < r.m.length; i++)
            for (int j = 0; j < r.m[i].length; j++) {
                Fraction sum = Fraction.ZERO;
                for (int k = 0; k < b.m.length; k++) sum = sum.add(m[i][k].multiply(b.m[k][j]));
                r.m[i][j] = sum;
            }
        return r;
    }

    Matrix power(int n) {
        Matrix r = new Matrix(m.length, m.length), x = this;
        do {
            if ((n & 1) != 0) r = r.times(x);
            x = x.times(x);
        } while ((n >>= 1) != 0);
        return r;
    }

    /** By elimination, on a copy. The determinant comes out on the way. */
    private Fraction determinant = Fraction.ONE;

    Matrix inverse() throws SingularException {
        int n = m.length;
        Fraction[][] a = new Fraction[n][];
        for (int i = 0; i < n; i++) a[i] = (Fraction[]) m[i].clone();
        Matrix r = new Matrix(n, n);
        determinant = Fraction.ONE;
        for (int c = 0; c < n; c++) {
            int pivot = c;
            while (pivot < n && a[pivot][c].isZero()) pivot++;
            if (pivot == n) {
                determinant = Fraction.ZERO;
                throw new SingularException(c);
            }
            if (pivot != c) {
                Fraction[] t = a[c]; a[c] = a[pivot]; a[pivot] = t;
                t = r.m[c]; r.m[c] = r.m[pivot]; r.m[pivot] = t;
                determinant = determinant.negate();
            }
            Fraction d = a[c][c];
            determinant = determinant.multiply(d);
            for (int j = 0; j < n; j++) {
                a[c][j] = a[c][j].divide(d);
                r.m[c][j] = r.m[c][j].divide(d);
            }
            for (int i = 0; i < n; i++) {
                Fraction f = a[i][c];
                if (i == c || f.isZero()) continue;
                for (int j = 0; j < n; j++) {
                    a[i][j] = a[i][j].subtract(f.multiply(a[c][j]));
                    r.m[i][j] = r.m[i][j].subtract(f.multiply(r.m[c][j]));
                }
            }
        }
        return r;
    }

    Fraction determinant() {
        try {
            inverse();
        } catch (SingularException e) {
            return Fraction.ZERO;
        }
        return determinant;
    }

    Matrix transposed() {
        Matrix t = new Matrix(m[0].length, m.length);
        for (int i = 0; i < m.length; i++) for (int j = 0; j < m[0].length; j++) t.m[j][i] = m[i][j];
        return t;
    }

    public boolean equals(Object o) {
        if (!(o instanceof Matrix)) return false;
        Fraction[][] n = ((Matrix) o).m;
        boolean same = n.length == m.length;
        for (int i = 0; same && i < m.length; i++) {
            same &= n[i].length == m[i].length;
            for (int j = 0; same && j < m[i].length; j++) same = m[i][j].equals(n[i][j]);
        }
        return same;
    }

    public String toString() {
        StringBuffer b = new StringBuffer("[");
        for (int i = 0; i < m.length; i++) {
            if (i > 0) b.append("; ");
            for (int j = 0; j < m[i].length; j++) b.append(j > 0 ? " " : "").append(m[i][j]);
        }
        return b + "]";
    }
}

class Complex {
    double re, im;

    Complex(double re, double im) {
        this.re = re;
        this.im = im;
    }

    Complex times(Complex c) {
        return new Complex(re * c.re - im * c.im, re * c.im + im * c.re);
    }

    void add(Complex c) {
        re += c.re;
        im += c.im;
    }

    static Complex[] transform(Complex[] x, boolean back) {
        int n = x.length;
        if (n == 1) return x;
        Complex[] even = new Complex[n / 2], odd = new Complex[n / 2], r = new Complex[n];
        for (int i = 0; i < n; i += 2) {
            even[i >> 1] = x[i];
            odd[i >> 1] = x[i + 1];
        }
        even = transform(even, back);
        odd = transform(odd, back);
        for (int k = 0; k < n / 2; k++) {
            double w = (back ? 2 : -2) * Math.PI * k / n;
            Complex t = odd[k].times(new Complex(Math.cos(w), Math.sin(w)));
            r[k] = new Complex(even[k].re, even[k].im);
            r[k + n / 2] = new Complex(even[k].re - t.re, even[k].im - t.im);
            r[k].add(t);
        }
        return r;
    }
}

public class Main {
    static final float EPSILON = 1e-5f;

    static int iterations(double a, double b) {
        double x = 0, y = 0, t;
        int n = 0;
        for (; x * x + y * y <= 4 && n < 50; n++, x = t) {
            t = x * x - y * y + a;
            y = 2 * x * y + b;
        }
        return n;
    }

    static float newton(float x) {
        float r = 1, d;
        do r -= d = (r * r - x) / (2 * r); while (d > EPSILON || d < -EPSILON);
        return r;
    }

    static double simpson(int n, double from, double to) {
        double h = (to - from) / n, sum = 0;
        for (int i = 0; i <= n; i++) {
            double x = from + i * h;
            sum += (i == 0 || i == n ? 1 : i % 2 == 1 ? 4 : 2) * (x * x * x - 2 * x + 1);
        }
        return sum * h / 3;
    }

    public static void main(String[] args) throws SingularException {
        Matrix a = new Matrix(new int[][] { { 2, 1, -1 }, { -3, -1, 2 }, { -2, 1, 2 } }), b = new Matrix(new int[][] { { 8 }, { -11 }, { -3 } });
        System.out.println(a + " inverse " + a.inverse() + " determinant " + a.determinant());
        System.out.println("solution " + a.inverse().times(b) + ", transposed " + a.transposed() + " " + a.times(a.inverse()).equals(new Matrix(3, 3)));
        Matrix h = Matrix.hilbert(5);
        System.out.println("hilbert " + h.inverse() + " " + h.determinant() + " " + h.inverse().inverse().equals(h));
        System.out.println("fibonacci " + new Matrix(new int[][] { { 1, 1 }, { 1, 0 } }).power(60));
        System.out.println("swapped " + new Matrix(new int[][] { { 0, 1 }, { 1, 0 } }).determinant() + " " + new Fraction(6, -4) + " " + new Fraction(-6, -3) + " " + new Fraction(0, 5).equals(Fraction.ZERO));
        try {
            new Matrix(new int[][] { { 1, 2 }, { 2, 4 } }).inverse();
        } catch (SingularException e) {
            System.out.println(e.getMessage());
        }
        try {
            a.times(new Matrix(2, 2));
        } catch (IllegalArgumentException e) {
            System.out.println(e.getMessage());
        }
        Complex[] wave = new Complex[16];
        for (int i = 0; i < wave.length; i++) wave[i] = new Complex(i % 4 < 2 ? 1 : -1, 0);
        Complex[] spectrum = Complex.transform(wave, false), back = Complex.transform(spectrum, true);
        StringBuffer s = new StringBuffer();
        double worst = 0;
        for (int i = 0; i < 16; i++) {
            s.append(Math.round(Math.sqrt(spectrum[i].re * spectrum[i].re + spectrum[i].im * spectrum[i].im) * 1000)).append(' ');
            worst = Math.max(worst, Math.abs(back[i].re / 16 - wave[i].re) + Math.abs(back[i].im));
        }
        System.out.println("spectrum " + s + (worst < 1e-12 ? "and back" : "BROKEN " + worst));
        for (int y = -4; y <= 4; y++) {
            StringBuffer line = new StringBuffer();
            for (int x = -16; x <= 6; x++) line.append(" .:-=+*%@#".charAt(iterations(x / 8.0, y / 4.0) * 9 / 50));
            System.out.println("|" + line + "|");
        }
        System.out.println((int) (newton(2f) * 10000) + " " + (int) (newton(1e6f) + .5f) + " " + Math.round(simpson(10, 0, 2) * 1e9) + " " + (int) (float) 1e10 + " " + (long) -1.5f);
    }
}
