// A display that nobody sees, on a number that is free.
import { spawn } from "node:child_process";
import type { Readable } from "node:stream";

export interface display {
    name: string;
    stop: () => void;
}

export function startDisplay(): Promise<display> {
    const switches = ["-displayfd", "3", "-screen", "0", "1400x1200x24", "-nolisten", "tcp"];
    const server = spawn("Xvfb", switches, { stdio: ["ignore", "ignore", "ignore", "pipe"] });
    return new Promise((resolve, reject) => {
        server.once("error", reject);
        server.once("exit", () => reject(new Error("no display could be started")));
        (server.stdio[3] as Readable).once("data", (number: Buffer) => {
            resolve({ name: `:${number.toString().trim()}`, stop: () => void server.kill() });
        });
    });
}
