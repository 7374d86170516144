// A library that exports a symbol of every sort: strong, weak and unique.
#define SAMPLE_EXPORT __attribute__((visibility("default")))

namespace sample {

SAMPLE_EXPORT int exportedFunction();
int hiddenFunction();

/// Exported with its virtual table and type information.
struct SAMPLE_EXPORT Base {
    virtual ~Base();
};

/// What the standard library's templates look like to the compiler.
template <class T>
struct SAMPLE_EXPORT Template {
    static T value; // g++ makes it unique, clang weak
    static T get();
};

template <class T>
T Template<T>::value;

template <class T>
T Template<T>::get() {
    return value;
}

template struct Template<int>;

Base::~Base() = default;
int hiddenFunction() { return 1; }
int exportedFunction() { return hiddenFunction(); }

} // namespace sample
