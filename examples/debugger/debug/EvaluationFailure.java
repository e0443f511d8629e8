package debug;

/** Why an expression has no value here, in words for the user. */
class EvaluationFailure extends RuntimeException {
    EvaluationFailure(String text) {
        super(text);
    }
}
