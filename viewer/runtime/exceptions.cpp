// Exceptions for WebAssembly, which the compiler knows and whose runtime Debian's libc++abi is built without: what the
// compiler calls to throw and to catch, and the search for the handler. Exceptions are thrown by one thread, and none
// outlives its handlers.

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <typeinfo>

namespace __cxxabiv1 {

// As libc++abi has it, which knows what each type of a handler catches.
class __shim_type_info : public std::type_info {
public:
    ~__shim_type_info() override;
    virtual void noop1() const;
    virtual void noop2() const;
    virtual bool can_catch(const __shim_type_info *thrown, void *&object) const = 0;
};

} // namespace __cxxabiv1

namespace {

using __cxxabiv1::__shim_type_info;

// In front of each object that is thrown; what is passed on to handlers is its address.
struct alignas(16) Exception {
    const std::type_info *type;
    void *(*destroy)(void *); // destructors return their object here
    Exception *caught_before; // whose handlers this one's are inside of
    int handlers;             // that it is in; negative while it is thrown once more by one of them
    void *seen;               // the object as the handler's type sees it

    void *object() { return this + 1; }
};

Exception *caught = nullptr; // the innermost one

// Numbers as they stand in the tables of the compiler.
class Table {
public:
    explicit Table(const uint8_t *at) : at_(at) {}

    const uint8_t *at() const { return at_; }
    uint8_t octet() { return *at_++; }

    uintptr_t number() { return read().value; }

    intptr_t signed_number() {
        const Number read = this->read();
        const bool is_negative = (read.last & 0x40) != 0 && read.bits < 8 * sizeof read.value;
        return static_cast<intptr_t>(is_negative ? read.value | ~uintptr_t{0} << read.bits : read.value);
    }

private:
    struct Number {
        uintptr_t value;
        unsigned bits;
        uint8_t last;
    };

    Number read() {
        Number number{};
        do {
            number.last = octet();
            number.value |= uintptr_t{number.last & 0x7FU} << number.bits;
            number.bits += 7;
        } while ((number.last & 0x80) != 0);
        return number;
    }

    const uint8_t *at_;
};

// What a function catches, and where: the call sites, each with its actions, and the types of the handlers, which are
// counted from 1 backwards from their end.
struct Handlers {
    explicit Handlers(const uint8_t *data) {
        constexpr uint8_t kOmitted = 0xFF;
        constexpr uint8_t kAddress = 0;
        Table table(data);
        if (table.octet() != kOmitted) std::abort(); // landing pads begin with the function
        const uint8_t encoding = table.octet();
        if (encoding != kOmitted) {
            if (encoding != kAddress) std::abort();
            const uintptr_t size = table.number();
            types = reinterpret_cast<const __shim_type_info *const *>(table.at() + size);
        }
        table.octet(); // call sites are encoded as there is no other way to
        const uintptr_t size = table.number();
        call_sites = table.at();
        actions = call_sites + size;
    }

    // The first action of a call site; null where nothing is caught.
    const uint8_t *first_action(uintptr_t call_site) const {
        Table table(call_sites);
        for (uintptr_t before = 0; before < call_site; ++before) {
            table.number();
            table.number();
        }
        table.number(); // the landing pad
        const uintptr_t action = table.number();
        return action == 0 ? nullptr : actions + action - 1;
    }

    const __shim_type_info *const *types = nullptr; // behind the last
    const uint8_t *call_sites;
    const uint8_t *actions;
};

// The number of the handler's type; 0 for none.
intptr_t find_handler(const Handlers &handlers, const uint8_t *action, Exception &exception) {
    while (action) {
        Table table(action);
        const intptr_t type = table.signed_number();
        const uint8_t *const place = table.at();
        const intptr_t next = table.signed_number();
        if (type < 0) std::abort(); // lists of types that a function may throw are of another age
        if (type > 0) {
            const __shim_type_info *const wanted = handlers.types[-type];
            void *object = exception.object();
            if (!wanted || wanted->can_catch(static_cast<const __shim_type_info *>(exception.type), object)) {
                exception.seen = object;
                return type;
            }
        }
        action = next == 0 ? nullptr : place + next;
    }
    return 0;
}

[[noreturn]] void raise(Exception *exception) { __builtin_wasm_throw(0, exception); }

void destroy(Exception *exception) {
    if (exception->destroy) exception->destroy(exception->object());
    std::free(exception);
}

} // namespace

extern "C" {

// What landing pads tell the search, and what it finds.
struct LandingPad {
    uintptr_t call_site;
    const uint8_t *handlers;
    uintptr_t selector;
};
LandingPad __wasm_lpad_context;

int _Unwind_CallPersonality(void *exception) {
    const Handlers handlers(__wasm_lpad_context.handlers);
    const uint8_t *const action = handlers.first_action(__wasm_lpad_context.call_site);
    __wasm_lpad_context.selector =
        static_cast<uintptr_t>(find_handler(handlers, action, *static_cast<Exception *>(exception)));
    return 0;
}

void *__cxa_allocate_exception(size_t octets) noexcept {
    void *const room = std::malloc(sizeof(Exception) + octets);
    if (!room) std::abort();
    return static_cast<Exception *>(room) + 1;
}

void __cxa_free_exception(void *object) noexcept { std::free(static_cast<Exception *>(object) - 1); }

[[noreturn]] void __cxa_throw(void *object, std::type_info *type, void *(*destroy)(void *)) {
    Exception *const exception = static_cast<Exception *>(object) - 1;
    *exception = {.type = type, .destroy = destroy, .caught_before = nullptr, .handlers = 0, .seen = object};
    raise(exception);
}

void *__cxa_get_exception_ptr(void *exception) noexcept { return static_cast<Exception *>(exception)->seen; }

void *__cxa_begin_catch(void *thrown) noexcept {
    auto *const exception = static_cast<Exception *>(thrown);
    exception->handlers = exception->handlers < 0 ? 1 - exception->handlers : exception->handlers + 1;
    if (caught != exception) {
        exception->caught_before = caught;
        caught = exception;
    }
    return exception->seen;
}

void __cxa_end_catch() {
    Exception *const exception = caught;
    if (!exception) return;
    if (exception->handlers < 0) { // it is on its way
        if (++exception->handlers == 0) caught = exception->caught_before;
    } else if (--exception->handlers == 0) {
        caught = exception->caught_before;
        destroy(exception);
    }
}

[[noreturn]] void __cxa_rethrow() {
    if (!caught) std::terminate();
    caught->handlers = -caught->handlers;
    raise(caught);
}

// There is one thread, which ends with the module.
int __cxa_atexit(void (*destroy)(void *), void *object, void *module);
int __cxa_thread_atexit(void (*destroy)(void *), void *object, void *module) noexcept {
    return __cxa_atexit(destroy, object, module);
}

} // extern "C"
