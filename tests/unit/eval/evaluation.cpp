#include "evaluation.h"

namespace tarn {

namespace {

const char* const support = R"(package quillon.compiler.loader;
public class EvalSupport {
    public static Object box(byte v) { return null; }   public static Object box(char v) { return null; }
    public static Object box(short v) { return null; }  public static Object box(int v) { return null; }
    public static Object box(long v) { return null; }   public static Object box(float v) { return null; }
    public static Object box(double v) { return null; } public static Object box(boolean v) { return null; }
    public static Object box(Object v) { return null; }
})";
const char* const expression = R"(package quillon.compiler.loader;
public interface IExpression { Object eval(IEvaluatorContext $context); })";
const char* const evaluatorContext = R"(package quillon.compiler.loader;
public interface IEvaluatorContext {
    IEvaluatorContext getField(String n); IEvaluatorContext getStatic(String c, String n); IEvaluatorContext getIndexed(int i);
    byte getByteValue(); char getCharValue(); short getShortValue(); int getIntValue(); long getLongValue();
    float getFloatValue(); double getDoubleValue(); boolean getBooleanValue(); Object getObjectValue();
    void setByteValue(byte v); void setCharValue(char v); void setShortValue(short v); void setIntValue(int v);
    void setLongValue(long v); void setFloatValue(float v); void setDoubleValue(double v);
    void setBooleanValue(boolean v); void setObjectValue(Object v);
})";

Bytes bytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

} // namespace

EvaluationTest::EvaluationTest() {
    for (auto [name, text] :
         {std::pair{"IEvaluatorContext", evaluatorContext}, {"IExpression", expression}, {"EvalSupport", support}}) {
        compile(name, text);
        std::string fileName = std::string(name) + ".class";
        std::string path_ = "quillon/compiler/loader/" + fileName;
        Bytes bytes = output(path_)->read();
        path->create(path_)->write(bytes);
        path->makeDirectory("quillon/compiler/loader")->create(fileName)->write(bytes);
    }
    EXPECT_EQ(reporter.said, std::vector<std::string>());
    host.setClassPath(context_.classPath);
}

void EvaluationTest::setSource(std::string_view text) {
    source->write(bytesOf(text));
}

std::string EvaluationTest::evaluate(int line, std::string_view text) {
    return host.evaluate("quillon.compiler.loader", "Expression", *file, line, source, text).value_or("");
}

} // namespace tarn
