/** In the unnamed package, with the name of an interface of another one. */
class Limits {
    static int highest() {
        return bank.accounts.Limits.HIGHEST;
    }
}
