/** Natural numbers without an upper end: digits in base 10000, least first. */
final class Big {
    static final int BASE = 10000;
    static final Big ZERO = new Big(0), ONE = new Big(1);
    private final short[] digits;

    Big(long n) {
        if (n < 0) throw new IllegalArgumentException("negative: " + n);
        short[] d = new short[5];
        int i = 0;
        for (; n != 0; n /= BASE) d[i++] = (short) (n % BASE);
        digits = cut(d, i);
    }

    Big(String s) {
        digits = new short[(s.length() + 3) / 4];
        for (int end = s.length(), i = 0; end > 0; end -= 4, i++) digits[i] = Short.parseShort(s.substring(Math.max(0, end - 4), end));
    }

    private Big(short[] digits) {
        int n = digits.length;
        while (n > 0 && digits[n - 1] == 0) n--;
        this.digits = cut(digits, n);
    }

    private static short[] cut(short[] d, int n) {
        if (d.length == n) return d;
        short[] r = new short[n];
        System.arraycopy(d, 0, r, 0, n);
        return r;
    }

    private int digit(int i) {
        return i < digits.length ? digits[i] : 0;
    }

    boolean isZero() {
        return digits.length == 0;
    }

    int compareTo(Big b) {
        if (digits.length != b.digits.length) return digits.length < b.digits.length ? -1 : 1;
        for (int i = digits.length; --i >= 0; )
            if (digits[i] != b.digits[i]) return digits[i] < b.digits[i] ? -1 : +1;
        return 0;
    }

    Big plus(Big b) {
        short[] r = new short[Math.max(digits.length, b.digits.length) + 1];
        int carry = 0;
        for (int i = 0; i < r.length; i++) {
            carry += digit(i) + b.digit(i);
            r[i] = (short) (carry % BASE);
            carry /= BASE;
        }
        return new Big(r);
    }

    Big minus(Big b) {
        short[] r = new short[digits.length];
        int borrow = 0;
        for (int i = 0; i < r.length; i++) {
            int d = digits[i] - b.digit(i) - borrow;
            borrow = d < 0 ? 1 : 0;
            r[i] = (short) (d < 0 ? d + BASE : d);
        }
        if (borrow != 0 || b.digits.length > digits.length) throw new ArithmeticException(this + " - " + b);
        return new Big(r);
    }

    Big times(Big b) {
        short[] r = new short[digits.length + b.digits.length];
        for (int i = 0; i < digits.length; i++) {
            int carry = 0;
            for (int j = 0; j < b.digits.length || carry != 0; j++) {
                carry += r[i + j] + digits[i] * b.digit(j);
                r[i + j] = (short) (carry % BASE);
                carry /= BASE;
            }
        }
        return new Big(r);
    }

    /** Quotient and remainder, by school division with a guess from above and below. */
    Big[] divide(Big b) {
        if (b.isZero()) throw new ArithmeticException("division by zero");
        short[] q = new short[digits.length];
        Big rest = ZERO, base = new Big(BASE);
        for (int i = digits.length; i-- > 0; ) {
            rest = rest.times(base).plus(new Big(digits[i]));
            int low = 0, high = BASE - 1;
            while (low < high) {
                int middle = low + high + 1 >>> 1;
                if (b.times(new Big(middle)).compareTo(rest) <= 0) low = middle;
                else high = middle - 1;
            }
            q[i] = (short) low;
            rest = rest.minus(b.times(new Big(low)));
        }
        return new Big[] { new Big(q), rest };
    }

    Big power(int n) {
        Big r = ONE, x = this;
        for (; n > 0; n >>= 1, x = x.times(x)) if ((n & 1) == 1) r = r.times(x);
        return r;
    }

    Big powerModulo(Big n, Big m) {
        Big r = ONE, x = this.divide(m)[1], two = new Big(2);
        while (!n.isZero()) {
            Big[] half = n.divide(two);
            if (!half[1].isZero()) r = r.times(x).divide(m)[1];
            x = x.times(x).divide(m)[1];
            n = half[0];
        }
        return r;
    }

    Big root() {
        if (isZero()) return this;
        Big x = new Big(10).power((toString().length() + 1) / 2), y;
        while (true) {
            y = x.plus(divide(x)[0]).divide(new Big(2))[0];
            if (y.compareTo(x) >= 0) return x;
            x = y;
        }
    }

    static Big gcd(Big a, Big b) {
        while (!b.isZero()) {
            Big t = a.divide(b)[1];
            a = b;
            b = t;
        }
        return a;
    }

    public boolean equals(Object o) {
        return o instanceof Big && compareTo((Big) o) == 0;
    }

    public String toString() {
        if (digits.length == 0) return "0";
        StringBuffer s = new StringBuffer().append(digits[digits.length - 1]);
        for (int i = digits.length - 2; i >= 0; i--) {
            String d = String.valueOf(BASE + digits[i]);
            s.append(d.substring(1));
        }
        return s.toString();
    }
}

public class Main {
    static Big factorial(int n) {
        Big r = Big.ONE;
        for (int i = 2; i <= n; i++) r = r.times(new Big(i));
        return r;
    }

    static Big fibonacci(int n) {
        Big a = Big.ZERO, b = Big.ONE, t;
        while (n-- > 0) {
            t = a.plus(b);
            a = b;
            b = t;
        }
        return a;
    }

    /** Digits of pi by Machin's formula, with some to spare. */
    static String pi(int digits) {
        Big unit = new Big(10).power(digits + 8);
        Big pi = arcus(5, unit).times(new Big(16)).minus(arcus(239, unit).times(new Big(4)));
        String s = pi.toString();
        return s.charAt(0) + "." + s.substring(1, digits + 1);
    }

    private static Big arcus(int x, Big unit) {
        Big power = unit.divide(new Big(x))[0], plus = power, minus = Big.ZERO, square = new Big(x * x);
        for (int n = 3; !power.isZero(); n += 2) {
            power = power.divide(square)[0];
            Big term = power.divide(new Big(n))[0];
            if (n % 4 == 3) minus = minus.plus(term);
            else plus = plus.plus(term);
        }
        return plus.minus(minus);
    }

    public static void main(String[] args) {
        System.out.println("30! = " + factorial(30));
        System.out.println("2^128 = " + new Big(2).power(128));
        System.out.println("fib(200) = " + fibonacci(200));
        Big a = new Big("123456789012345678901234567890"), b = new Big("987654321098765432109876543210");
        System.out.println(a + " * " + b + " = " + a.times(b));
        Big[] qr = a.times(b).plus(new Big(17)).divide(a);
        System.out.println("back " + qr[0].equals(b) + ", rest " + qr[1]);
        System.out.println("gcd " + Big.gcd(a, b) + ", root of 2*10^40 " + new Big(2).times(new Big(10).power(40)).root());
        System.out.println("1000000007^2 - 1 = " + new Big(1000000007L).power(2).minus(Big.ONE) + ", 3^(10^9+6) mod 10^9+7 = " + new Big(3).powerModulo(new Big(1000000006L), new Big(1000000007L)));
        System.out.println("pi = " + pi(60));
        System.out.println(new Big(Long.MAX_VALUE) + " " + new Big("00010000") + " " + new Big(0) + " " + new Big(100000000).plus(Big.ONE) + " " + new Big(9999).plus(Big.ONE));
        try {
            a.minus(b);
        } catch (ArithmeticException e) {
            System.out.println("no such number: " + e.getMessage());
        }
        try {
            a.divide(Big.ZERO);
        } catch (ArithmeticException e) {
            System.out.println(e.getMessage());
        }
        try {
            new Big(-1L);
        } catch (IllegalArgumentException e) {
            System.out.println(e.getMessage());
        }
    }
}
