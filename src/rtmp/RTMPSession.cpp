#include "rtmp/RTMPSession.h"

#include <algorithm>
#include <utility>

namespace vellora {
namespace {

using Error = RTMPConnection::Error;
using Code = RTMPConnection::Code;

constexpr std::int64_t connectTransaction = 1;

bool isConnectionStatus(const RTMPStatus& status) {
  return status.code.starts_with("NetConnection.Connect.");
}

bool isSuccess(const RTMPStatus& status) {
  return status.code == RTMPConnection::textOf(Code::connectSuccess);
}

RTMPFailure refusal(const char* what, std::optional<RTMPStatus> status) {
  RTMPFailure result{Error::requestFailed, what};
  if (status && status->code == RTMPConnection::textOf(Code::callFailed)) result.error = Error::unsupportedCommand;
  if (status && !status->code.empty()) result.message += " (" + status->code + ")";
  result.status = std::move(status);
  return result;
}

AMFArray strictArray(const std::vector<std::string>& texts) {
  AMFArray array;
  array.isStrict = true;
  for (const std::string& text : texts) array.values.emplace_back(text);
  return array;
}

}  // namespace

std::optional<RTMPStatus> statusAmong(const std::vector<AMFValue>& values) {
  for (const AMFValue& value : values) {
    const AMFObject* object = value.as<AMFObject>();
    if (const AMFArray* array = value.as<AMFArray>()) object = &array->named;
    if (!object) continue;
    const AMFValue* code = object->find("code");
    if (!code) continue;
    RTMPStatus status;
    status.code = code->text();
    if (const AMFValue* level = object->find("level")) status.level = level->text();
    if (const AMFValue* description = object->find("description")) status.description = description->text();
    status.details = *object;
    return status;
  }
  return std::nullopt;
}

RTMPConnection::Session::Session(asio::any_io_executor executor, Options options)
    : strand_(asio::make_strand(std::move(executor))),
      options_(std::move(options)),
      queue_(std::make_shared<RTMPSendQueue>(options_.maximumQueue)),
      statusChanged_(strand_) {}

RTMPFailure RTMPConnection::Session::notConnected() const {
  if (closedBecause_) return *closedBecause_;
  return {Error::invalidState, "there is no connection"};
}

asio::awaitable<Result<RTMPResponse, RTMPFailure>> RTMPConnection::Session::connect(std::string url,
                                                                                    std::vector<AMFValue> arguments) {
  if (phase_ != Phase::fresh)
    co_return failure(RTMPFailure{Error::invalidState, "a connection can be connected only once"});
  auto parsed = RTMPURL::parse(url);
  if (!parsed) co_return failure(RTMPFailure{Error::unsupportedCommand, std::move(parsed.error())});
  phase_ = Phase::connecting;

  const bool inAddress = !parsed->user.empty();
  RTMPAuthenticator authenticator(inAddress ? parsed->user : options_.user,
                                  inAddress ? parsed->password : options_.password);
  while (true) {
    RTMPURL target = *parsed;
    if (!authenticator.query().empty()) {
      const std::string separator = target.query.empty() ? "?" : "&";
      target.query += (target.query.empty() ? "" : "&") + authenticator.query();
      target.text += separator + authenticator.query();
    }
    auto response = co_await attempt(target, arguments);
    if (phase_ != Phase::connecting) co_return failure(notConnected());
    if (response) {
      phase_ = Phase::connected;
      // It may have ended right behind the answer.
      if (link_->failure()) end(*link_->failure());
      co_return response;
    }
    RTMPFailure why = std::move(response.error());
    if (why.status) {
      switch (authenticator.next(why.status->description)) {
        case RTMPAuthenticator::Step::retry:
          link_->close();
          continue;
        case RTMPAuthenticator::Step::noCredentials:
          why.message = "the server wants a user name and a password";
          break;
        case RTMPAuthenticator::Step::refused:
          why.message = "the server does not accept this user name and password";
          break;
        case RTMPAuthenticator::Step::notAsked:
          break;
      }
    }
    end(why);
    co_return failure(std::move(why));
  }
}

asio::awaitable<Result<RTMPResponse, RTMPFailure>> RTMPConnection::Session::attempt(
    const RTMPURL& url, const std::vector<AMFValue>& arguments) {
  RTMPSocket::Options socketOptions;
  socketOptions.qualityOfService = options_.qualityOfService;
  socketOptions.securityLevel = url.isSecure ? RTMPSecurityLevel::tls : RTMPSecurityLevel::none;
  socketOptions.authorities = options_.authorities;
  queue_ = std::make_shared<RTMPSendQueue>(options_.maximumQueue);
  setLink(std::make_shared<RTMPLink>(strand_, weak_from_this(), std::move(socketOptions), queue_, options_.chunkSize));
  currentTransactionId_ = connectTransaction - 1;
  const std::shared_ptr<RTMPLink> link = link_;
  auto opened = co_await link->open(url.host, url.port, options_.timeout);
  if (!opened) co_return failure(std::move(opened.error()));
  auto response = co_await request("connect", commandObject(url), arguments);
  if (response && response->status && !isSuccess(*response->status))
    co_return failure(refusal("the server did not accept the connection", std::move(response->status)));
  co_return response;
}

AMFObject RTMPConnection::Session::commandObject(const RTMPURL& url) const {
  const auto textOrNull = [](const std::optional<std::string>& text) {
    return text ? AMFValue(*text) : AMFValue(nullptr);
  };
  AMFObject object{
      {"app", url.app()},
      {"flashVer", options_.flashVer},
      {"swfUrl", textOrNull(options_.swfUrl)},
      {"tcUrl", url.text},
      {"fpad", false},
      {"capabilities", defaultCapabilities},
      {"audioCodecs", 1024},
      {"videoCodecs", 128},
      {"videoFunction", 1},
      {"pageUrl", textOrNull(options_.pageUrl)},
      {"objectEncoding", static_cast<int>(defaultObjectEncoding)},
  };
  if (!options_.fourCcList.empty()) object.append("fourCcList", strictArray(options_.fourCcList));
  if (options_.videoFourCcInfoMap) object.append("videoFourCcInfoMap", *options_.videoFourCcInfoMap);
  if (options_.audioFourCcInfoMap) object.append("audioFourCcInfoMap", *options_.audioFourCcInfoMap);
  if (options_.capsEx) object.append("capsEx", *options_.capsEx);
  return object;
}

asio::awaitable<Result<RTMPResponse, RTMPFailure>> RTMPConnection::Session::call(std::string commandName,
                                                                                 std::vector<AMFValue> arguments) {
  if (!isConnected()) co_return failure(notConnected());
  auto response = co_await request(std::move(commandName), std::nullopt, std::move(arguments));
  co_return response;
}

asio::awaitable<Result<RTMPResponse, RTMPFailure>> RTMPConnection::Session::request(std::string commandName,
                                                                                    std::optional<AMFObject> object,
                                                                                    std::vector<AMFValue> arguments) {
  const RTMPFailure cancelled{Error::invalidState, "the request was cancelled"};
  const asio::cancellation_state cancellation = co_await asio::this_coro::cancellation_state;
  if (cancellation.cancelled() != asio::cancellation_type::none) co_return failure(cancelled);
  if (operations_.size() >= maximumRequests)
    co_return failure(RTMPFailure{Error::invalidState, "too many requests wait for their answers"});
  const std::int64_t transactionId = ++currentTransactionId_;
  const auto operation = std::make_shared<Operation>(strand_);
  operations_.emplace(transactionId, operation);
  sendCommand(0, transactionId, std::move(commandName), std::move(object), std::move(arguments));
  operation->timer.expires_after(options_.requestTimeout);
  asio::error_code error;
  co_await operation->timer.async_wait(asio::redirect_error(asio::use_awaitable, error));
  operations_.erase(transactionId);
  if (operation->outcome) co_return std::move(*operation->outcome);
  if (error) co_return failure(cancelled);
  co_return failure(RTMPFailure{Error::requestTimedOut, "the server did not answer in time"});
}

void RTMPConnection::Session::sendCommand(std::uint32_t streamId, std::int64_t transactionId, std::string commandName,
                                          std::optional<AMFObject> object, std::vector<AMFValue> arguments) {
  RTMPCommandMessage command(streamId, transactionId, defaultObjectEncoding, std::move(commandName), std::move(object),
                             std::move(arguments));
  queue_->push({command.type(), RTMPChunkStreamId::command, streamId, std::move(command.payload)});
}

std::int64_t RTMPConnection::Session::send(std::uint32_t streamId, std::string commandName,
                                           std::vector<AMFValue> arguments) {
  const std::int64_t transactionId = ++currentTransactionId_;
  sendCommand(streamId, transactionId, std::move(commandName), std::nullopt, std::move(arguments));
  return transactionId;
}

void RTMPConnection::Session::attach(std::uint32_t streamId, std::weak_ptr<StreamListener> stream) {
  streams_[streamId] = std::move(stream);
}

void RTMPConnection::Session::detach(std::uint32_t streamId) {
  streams_.erase(streamId);
}

void RTMPConnection::Session::setLink(std::shared_ptr<RTMPLink> link) {
  const std::lock_guard lock(linkMutex_);
  link_ = std::move(link);
}

void RTMPConnection::Session::linkReceived(RTMPMessage message) {
  if (auto* command = std::get_if<RTMPCommandMessage>(&message)) commandReceived(std::move(*command));
}

void RTMPConnection::Session::commandReceived(RTMPCommandMessage command) {
  if (command.commandName == "_result" || command.commandName == "_error") {
    RTMPResponse response;
    response.status = statusAmong(command.arguments);
    if (command.commandObject) response.commandObject = std::move(*command.commandObject);
    response.arguments = std::move(command.arguments);
    if (command.commandName == "_result") {
      complete(command.transactionId, std::move(response));
    } else {
      const RTMPFailure why =
          refusal(command.transactionId == connectTransaction ? "the server did not accept the connection"
                                                              : "the server refused the request",
                  std::move(response.status));
      for (const auto& [id, weak] : streams_)
        if (const auto stream = weak.lock()) stream->commandRefused(command.transactionId, why);
      complete(command.transactionId, failure(why));
    }
  } else if (command.commandName == "onStatus") {
    if (const auto status = statusAmong(command.arguments)) statusReceived(command.streamId, *status);
  } else if (command.commandName == "close") {
    end({Error::socketErrorOccurred, "the server ended the connection"});
  }
}

void RTMPConnection::Session::statusReceived(std::uint32_t streamId, const RTMPStatus& status) {
  const auto connecting = operations_.find(connectTransaction);
  const bool isAnswer = connecting != operations_.end() && !connecting->second->outcome;
  if (phase_ == Phase::connecting && isAnswer && isConnectionStatus(status)) {
    if (isSuccess(status))
      complete(connectTransaction, RTMPResponse{status, {}, {}});
    else
      complete(connectTransaction, failure(refusal("the server did not accept the connection", status)));
    return;
  }
  if (const auto found = streams_.find(streamId); found != streams_.end())
    if (const auto stream = found->second.lock()) stream->streamStatus(status);
  report(status);
}

void RTMPConnection::Session::complete(std::int64_t transactionId, Result<RTMPResponse, RTMPFailure> outcome) {
  const auto found = operations_.find(transactionId);
  if (found == operations_.end() || found->second->outcome) return;
  found->second->outcome = std::move(outcome);
  found->second->timer.cancel();
}

void RTMPConnection::Session::report(RTMPStatus status) {
  if (statuses_.size() >= maximumStatuses) statuses_.pop_front();
  statuses_.push_back(std::move(status));
  statusChanged_.notify();
}

void RTMPConnection::Session::linkFailed(RTMPFailure failure) {
  if (phase_ == Phase::connecting) {
    // The attempt that waits for its answer learns of it and decides how to go on.
    complete(connectTransaction, vellora::failure(std::move(failure)));
    return;
  }
  end(failure);
}

void RTMPConnection::Session::end(const RTMPFailure& why) {
  if (phase_ == Phase::closed) return;
  const bool wasConnected = phase_ == Phase::connected;
  phase_ = Phase::closed;
  closedBecause_ = why;
  if (link_) link_->close();
  queue_->close();
  for (const auto& [id, operation] : operations_) {
    if (!operation->outcome) operation->outcome = failure(why);
    operation->timer.cancel();
  }
  for (const auto& [id, weak] : std::exchange(streams_, {}))
    if (const auto stream = weak.lock()) stream->connectionClosed(why);
  if (wasConnected) {
    RTMPStatus status;
    status.code = textOf(Code::connectClosed);
    status.level = levelOf(Code::connectClosed);
    status.description = why.message;
    report(std::move(status));
  }
  statusChanged_.notify();
}

asio::awaitable<void> RTMPConnection::Session::close() {
  if (phase_ == Phase::connected) {
    const std::shared_ptr<RTMPLink> link = link_;
    co_await link->flush(flushTime);
    co_await link->finish(finishTime);
  }
  abandon();
}

void RTMPConnection::Session::abandon() {
  end({Error::invalidState, "the connection was closed"});
}

asio::awaitable<std::optional<RTMPStatus>> RTMPConnection::Session::nextStatus() {
  const asio::cancellation_state cancellation = co_await asio::this_coro::cancellation_state;
  while (statuses_.empty() && phase_ != Phase::closed) {
    if (cancellation.cancelled() != asio::cancellation_type::none) co_return std::nullopt;
    co_await statusChanged_.wait();
  }
  if (statuses_.empty()) co_return std::nullopt;
  RTMPStatus status = std::move(statuses_.front());
  statuses_.pop_front();
  co_return status;
}

}  // namespace vellora
