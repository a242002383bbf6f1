#pragma once

#include <functional>
#include <type_traits>
#include <utility>

namespace osg {

/// A functor that calls a method of the object behind its first argument: `Result Class::method(Argument)`, where
/// ObjectPtr points to Class and the first argument, a BasePtr, to an object that must be a Class.
///
/// \code
/// const auto functor =
///     osgTypedMethodFunctor2BaseCPtrRef<Action::ResultE, BillboardPtr, CNodePtr, Action*>(&Billboard::intersectEnter);
/// IntersectAction::registerEnterDefault(Billboard::getClassType(), functor);
/// \endcode
template <class Result, class ObjectPtr, class BasePtr, class Argument,
          class Class = std::remove_reference_t<decltype(*std::declval<ObjectPtr>())>>
std::function<Result(BasePtr&, Argument)>
osgTypedMethodFunctor2BaseCPtrRef(std::common_type_t<Result (Class::*)(Argument)> method) {
    return [method](BasePtr& object, Argument argument) { return (static_cast<Class&>(*object).*method)(argument); };
}

} // namespace osg
