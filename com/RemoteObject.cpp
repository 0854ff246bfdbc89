#include "com/RemoteObject.h"

#include <utility>

#include "com/FailureNumber.h"
#include "data/RunTimeError.h"

namespace com {
namespace {

// An object may stand for another one, that for a third one, but not for ever.
constexpr int kMostSteps = 4;

}  // namespace

RemoteObject::RemoteObject(IDispatch* object, std::shared_ptr<ServerState> server)
    : server_(std::move(server)), object_(*server_, object), ids_(std::make_shared<MemberIds>()) {}

HRESULT RemoteObject::FindId(Member member, DISPID& id) {
  id = ids_->Find(member);
  return id != DISPID_UNKNOWN ? S_OK : AskForId(member, id);
}

// A member that the object does not have is not asked for again.
HRESULT RemoteObject::AskForId(Member member, DISPID& id) {
  if (ids_->IsAbsent(member)) return DISP_E_UNKNOWNNAME;
  auto name = const_cast<wchar_t*>(NameOf(member));
  HRESULT answer = S_OK;
  server_->Touch([&]() noexcept {
    answer = object_.Get()->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  });
  if (SUCCEEDED(answer)) ids_->Remember(member, id);
  if (SaysThatTheMemberIsUnknown(answer)) ids_->RememberAbsent(member);
  return answer;
}

void RemoteObject::ShareIds(std::shared_ptr<MemberIds> ids) {
  ids_ = std::move(ids);
}

const void* RemoteObject::DispatchCode() const {
  const void* code = nullptr;
  server_->Touch([&]() noexcept { code = *reinterpret_cast<const void* const*>(object_.Get()); });
  return code;
}

HRESULT RemoteObject::InvokeMember(Member member, DISPPARAMS& arguments, VARIANT* result) {
  DISPID id = DISPID_UNKNOWN;
  const HRESULT found = FindId(member, id);
  return FAILED(found) ? found : InvokeId(id, arguments, result);
}

// A failure that the callee describes is raised here, where the description is at hand. What a
// failed call has left as its result is not to be relied on.
HRESULT RemoteObject::InvokeId(DISPID id, DISPPARAMS& arguments, VARIANT* result) const {
  automation::ExceptionDetails details;
  HRESULT answer = S_OK;
  const WORD kind = result == nullptr ? DISPATCH_METHOD : DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  const auto invoke = [&]() noexcept {
    answer = object_.Get()->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &arguments, result,
                                   &details, nullptr);
  };
  const bool alive = server_->TryTouch(invoke);
  if (!alive) details.Forget();
  if (result != nullptr && (!alive || FAILED(answer))) result->vt = VT_EMPTY;
  server_->CheckAlive();
  if (answer == DISP_E_EXCEPTION) RaiseDescribed(details);
  return answer;
}

void RemoteObject::CallIfThere(Member member) {
  const HRESULT answer = TryCall(member);
  if (SaysThatTheMemberIsUnknown(answer)) return;
  Check(member, answer);
}

void RemoteObject::MakePlain(VARIANT& value) const {
  for (int step = 0; !IsPlain(value); ++step) {
    RemoteValue given(*server_, value);
    if (step == kMostSteps) throw data::RunTimeError(data::kTypeMismatch);
    given.Dereference();
    if (!given.IsObject()) {
      given.TakePlain(value);
      continue;
    }
    const RemoteObject object = TakeObject(given);
    DISPPARAMS none{};
    const HRESULT answer = object.InvokeId(DISPID_VALUE, none, &value);
    if (FAILED(answer)) object.RaiseResult(answer);
  }
}

RemoteObject RemoteObject::ObjectIn(VARIANT& value) const {
  RemoteValue given(*server_, value);
  given.Dereference();
  return TakeObject(given);
}

RemoteObject RemoteObject::TakeObject(RemoteValue& value) const {
  HRESULT result = S_OK;
  RemotePointer<IDispatch> object = value.TakeObject(result);
  if (FAILED(result)) RaiseResult(result);
  return RemoteObject(object.Detach(), server_);
}

}  // namespace com
