/** Classes that would have one name if they were only numbered. */
class Steps {
    static String local() {
        class Step {
            public String toString() { return "local"; }
        }
        return "" + new Step();
    }

    static Object anonymous = new Object() {
        class Step {
            public String toString() { return "member"; }
        }
        public String toString() { return "" + new Step(); }
    };
}
