// The machine's own Node.js in a process of its own, asked through a pair of pipes: a line of JSON
// each way. Its times are those that it has measured itself.
#include <array>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

#include "peers/Peers.h"

namespace bench {

namespace {

class NodeProcess {
  public:
    NodeProcess() {
        std::array<int, 2> toNode{};
        std::array<int, 2> fromNode{};
        if (pipe2(toNode.data(), O_CLOEXEC) != 0 || pipe2(fromNode.data(), O_CLOEXEC) != 0) {
            throw std::runtime_error("no pipe to Node.js");
        }
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, toNode[0], STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&actions, fromNode[1], STDOUT_FILENO);
        std::array<std::string, 3> words{"node", "--single-threaded", KXJS_NODE_SCRIPT};
        std::array<char*, 4> arguments{words[0].data(), words[1].data(), words[2].data(), nullptr};
        int const status = posix_spawnp(&id_, "node", &actions, nullptr, arguments.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        close(toNode[0]);
        close(fromNode[1]);
        requests_.reset(fdopen(toNode[1], "w"));
        answers_.reset(fdopen(fromNode[0], "r"));
        isRunning_ = status == 0;
    }
    NodeProcess(NodeProcess const&) = delete;
    NodeProcess& operator=(NodeProcess const&) = delete;

    ~NodeProcess() {
        requests_.reset();  // which ends it
        if (isRunning_) waitpid(id_, nullptr, 0);
    }

    bool isRunning() const { return isRunning_; }

    /// The answer to a request, without the quotes of a text.
    std::string ask(std::string const& request) {
        std::string const line = request + "\n";
        std::fwrite(line.data(), 1, line.size(), requests_.get());
        std::fflush(requests_.get());
        std::string answer;
        for (int c = std::fgetc(answers_.get()); c != '\n'; c = std::fgetc(answers_.get())) {
            if (c == EOF) throw std::runtime_error("Node.js has ended");
            answer += static_cast<char>(c);
        }
        if (answer.starts_with('"')) answer = answer.substr(1, answer.size() - 2);
        return answer;
    }

  private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    pid_t id_ = -1;
    bool isRunning_ = false;
    std::unique_ptr<std::FILE, Close> requests_;
    std::unique_ptr<std::FILE, Close> answers_;
};

std::string quoted(std::string const& text) {
    std::string json = "\"";
    for (char const c : text) {
        if (c == '"' || c == '\\') json += '\\';
        if (c == '\n') {
            json += "\\n";
        } else if (c == '\r') {
            json += "\\r";
        } else if (c == '\t') {
            json += "\\t";
        } else {
            json += c;
        }
    }
    return json + "\"";
}

class Node final : public Peer {
  public:
    bool isThere() const { return process_.isRunning(); }

    std::string name() const override { return "Node vm"; }
    std::string version() const override { return process_.ask(request("hello")); }
    bool can(Task task, Formula const& formula) const override {
        // Its regular expressions take quadratic time on hostile text.
        if (task == Task::convert) return formula.javaScript.size() < 100;
        return !isAgainstV8Alone(task);
    }

    Nanoseconds makeHosts(std::uint64_t count) override {
        if (!hasBuiltIns_) {
            process_.ask(request("builtIns", ",\"text\":" + quoted(builtInFunctions())));
            hasBuiltIns_ = true;
        }
        dropHosts();
        return time("makeHosts", 0, count);
    }

    std::string resultInLastHost(std::string const& javaScript) override {
        return process_.ask(request("resultInLastHost", ",\"text\":" + quoted(javaScript)));
    }

    void dropHosts() override { process_.ask(request("dropHosts")); }

    void use(Formula const& formula) override {
        std::string variables;
        for (Variable const& variable : formula.variables) {
            variables += (variables.empty() ? "" : ",") + json(variable);
        }
        process_.ask(request("use", ",\"text\":" + quoted(formula.javaScript) + ",\"variables\":[" +
                                        variables + "]"));
    }

    void compile() override { process_.ask(request("compile")); }

    Nanoseconds execute(std::uint64_t first, std::uint64_t count) override {
        return time("execute", first, count);
    }
    Nanoseconds parse(std::uint64_t first, std::uint64_t count) override {
        return time("parse", first, count);
    }
    Nanoseconds oneShot(std::uint64_t first, std::uint64_t count) override {
        return time("oneShot", first, count);
    }
    Nanoseconds convert(std::string const& text, std::uint64_t count) override {
        std::string const answer = process_.ask(
            request("convert", ",\"text\":" + quoted(text) + ",\"count\":" + std::to_string(count) +
                                   ",\"rules\":" + quoted(KXJS_NAIVE_CONVERTER)));
        return Nanoseconds(std::stoll(answer));
    }
    void executeParsed() override { execute(0, 1); }
    void forget() override { process_.ask(request("forget")); }
    std::string result() const override { return process_.ask(request("result")); }

  private:
    static std::string request(std::string const& name, std::string const& members = {}) {
        return R"({"do":")" + name + "\"" + members + "}";
    }

    static std::string json(Variable const& variable) {
        return "{\"name\":" + quoted(variable.name) + ",\"text\":" + quoted(variable.text) +
               ",\"number\":" + std::to_string(variable.number) +
               ",\"step\":" + std::to_string(variable.step) + "}";
    }

    Nanoseconds time(std::string const& name, std::uint64_t first, std::uint64_t count) {
        std::string const answer = process_.ask(request(
            name, ",\"first\":" + std::to_string(first) + ",\"count\":" + std::to_string(count)));
        return Nanoseconds(std::stoll(answer));
    }

    mutable NodeProcess process_;
    bool hasBuiltIns_ = false;
};

}  // namespace

std::unique_ptr<Peer> makeNodePeer() {
    std::signal(SIGPIPE, SIG_IGN);  // a process that has ended shows in its missing answer
    auto node = std::make_unique<Node>();
    if (!node->isThere()) return nullptr;
    return node;
}

}  // namespace bench
