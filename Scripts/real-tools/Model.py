"""A made-up model on the loopback, in the three dialects that the tools speak.

It calls the tool of Wendlow's server that it knows, once, and then says that it is done.
Every request is kept as a line of JSON, so that it can be seen what reached the model."""

import json
import sys
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer

# What it calls a tool with: the stand-in's, and the one by which the real server files a memory.
TEXT = "The otter sleeps under the mill."
CALLS = {"remember": {"text": TEXT},
         "memory_add": {"text": TEXT, "why": "the person said so", "type": "fact", "scope": "/work/atlas"}}


class Call:
    """Of a tool that a request offers: its name there, the server's where told apart, and the arguments."""

    def __init__(self, name, server, known):
        self.name, self.server, self.input = name, server, CALLS[known]
        self.arguments = json.dumps(self.input)


def offered(request):
    for tool in request.get("tools", []):
        name = tool.get("name") or tool.get("function", {}).get("name", "")
        for inner in tool.get("tools", []):
            if inner.get("name") in CALLS:
                return Call(inner["name"], name, inner["name"])
        for known in CALLS:
            if name.endswith(known) and "wendlow" in name:
                return Call(name, None, known)
    return None


def answered(request):
    text = json.dumps(request)
    return any(word in text for word in ('"tool_result"', '"function_call_output"', '"role": "tool"'))


def sse(event, data):
    line = f"event: {event}\n" if event else ""
    return f"{line}data: {data if isinstance(data, str) else json.dumps(data)}\n\n"


def messages(request):
    """Anthropic's messages, streamed."""
    call = None if answered(request) else offered(request)
    block = {"type": "tool_use", "id": "toolu_1", "name": call.name, "input": {}} if call else {"type": "text", "text": ""}
    delta = ({"type": "input_json_delta", "partial_json": call.arguments} if call
             else {"type": "text_delta", "text": "Done."})
    usage = {"input_tokens": 1, "output_tokens": 1}
    message = {"id": "msg_1", "type": "message", "role": "assistant", "model": request.get("model", ""),
               "content": [], "stop_reason": None, "stop_sequence": None, "usage": usage}
    reason = "tool_use" if call else "end_turn"
    if not request.get("stream"):
        content = [{**block, "input": call.input} if call else {"type": "text", "text": "Done."}]
        return json.dumps({**message, "content": content, "stop_reason": reason}), "application/json"
    return "".join([
        sse("message_start", {"type": "message_start", "message": message}),
        sse("content_block_start", {"type": "content_block_start", "index": 0, "content_block": block}),
        sse("content_block_delta", {"type": "content_block_delta", "index": 0, "delta": delta}),
        sse("content_block_stop", {"type": "content_block_stop", "index": 0}),
        sse("message_delta", {"type": "message_delta", "delta": {"stop_reason": reason, "stop_sequence": None},
                              "usage": usage}),
        sse("message_stop", {"type": "message_stop"})]), "text/event-stream"


def responses(request):
    """OpenAI's responses, streamed."""
    call = None if answered(request) else offered(request)
    if call:
        item = {"type": "function_call", "id": "fc_1", "call_id": "call_1", "name": call.name,
                "arguments": call.arguments}
        if call.server:
            item["namespace"] = call.server
    else:
        item = {"type": "message", "id": "item_1", "role": "assistant",
                "content": [{"type": "output_text", "text": "Done."}]}
    usage = {"input_tokens": 1, "output_tokens": 1, "total_tokens": 2}
    return "".join([
        sse("response.created", {"type": "response.created", "response": {"id": "resp_1"}}),
        sse("response.output_item.done", {"type": "response.output_item.done", "output_index": 0, "item": item}),
        sse("response.completed", {"type": "response.completed", "response": {"id": "resp_1", "usage": usage}}),
    ]), "text/event-stream"


def completions(request):
    """OpenAI's chat completions, streamed."""
    call = None if answered(request) else offered(request)
    delta = {"role": "assistant"}
    if call:
        delta["tool_calls"] = [{"index": 0, "id": "call_1", "type": "function",
                                "function": {"name": call.name, "arguments": call.arguments}}]
    else:
        delta["content"] = "Done."
    chunk = {"id": "c1", "object": "chat.completion.chunk", "created": 0, "model": request.get("model", "")}
    return "".join([
        sse(None, {**chunk, "choices": [{"index": 0, "delta": delta, "finish_reason": None}]}),
        sse(None, {**chunk, "choices": [{"index": 0, "delta": {}, "finish_reason": "tool_calls" if call else "stop"}],
                   "usage": {"prompt_tokens": 1, "completion_tokens": 1, "total_tokens": 2}}),
        sse(None, "[DONE]")]), "text/event-stream"


DIALECTS = {"/v1/messages": messages, "/v1/responses": responses, "/v1/chat/completions": completions}


class Handler(BaseHTTPRequestHandler):
    log = None

    def log_message(self, *_):
        pass

    def answer(self, body, kind, status=200):
        data = body.encode()
        self.send_response(status)
        self.send_header("Content-Type", kind)
        self.send_header("Content-Length", str(len(data)))
        self.end_headers()
        self.wfile.write(data)

    def do_GET(self):
        self.answer('{"object":"list","data":[]}', "application/json")

    def do_POST(self):
        body = self.rfile.read(int(self.headers.get("Content-Length", 0)))
        path = self.path.split("?")[0]
        try:
            request = json.loads(body)
        except ValueError:
            request = {}
        with open(self.log, "a") as log:
            log.write(json.dumps({"path": path, "request": request}) + "\n")
        if path.endswith("/count_tokens"):
            self.answer('{"input_tokens":1}', "application/json")
        elif path in DIALECTS:
            self.answer(*DIALECTS[path](request))
        else:
            self.answer("{}", "application/json", 404)


def serve(log):
    """The server, on a port of the system's choice; it answers once its `serve_forever` runs."""
    handler = type("Logged", (Handler,), {"log": log})
    return ThreadingHTTPServer(("127.0.0.1", 0), handler)


if __name__ == "__main__":
    server = serve(sys.argv[1])
    print(server.server_address[1], flush=True)
    server.serve_forever()
