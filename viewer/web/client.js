// The worker, as the page asks it.

export class Client {
    // onProgress is told how far it has read.
    constructor(script, onProgress) {
        this.address = URL.createObjectURL(new Blob([script], {type: 'text/javascript'}));
        this.worker = new Worker(this.address);
        this.asked = new Map();
        this.next = 1;
        this.worker.addEventListener('message', ({data}) => {
            if (data.progress) return onProgress(data.progress);
            const {resolve, reject} = this.asked.get(data.id);
            this.asked.delete(data.id);
            if ('error' in data) reject(new Error(data.error));
            else resolve(data.value);
        });
        this.worker.addEventListener('error', event => {
            event.preventDefault();
            this.fail(new Error(event.message || 'The worker of this page has ended.'));
        });
    }

    ask(name, ...values) {
        return new Promise((resolve, reject) => {
            this.asked.set(this.next, {resolve, reject});
            this.worker.postMessage({id: this.next++, name, values});
        });
    }

    // Sends the recording that stands in the page, a piece of its digits at a time.
    send(piece) {
        this.worker.postMessage({piece});
    }

    fail(error) {
        for (const {reject} of this.asked.values()) reject(error);
        this.asked.clear();
    }

    end() {
        this.worker.terminate();
        URL.revokeObjectURL(this.address);
        this.asked.clear();
    }
}

// Answers that are kept, as long as they are not too many: what has been asked once is likely to be asked again.
export class Answers {
    constructor(client, most = 5000) {
        Object.assign(this, {client, most, known: new Map()});
    }

    ask(name, ...values) {
        const key = `${name} ${values.join(' ')}`;
        let answer = this.known.get(key);
        if (!answer) {
            answer = this.client.ask(name, ...values);
            this.known.set(key, answer);
            if (this.known.size > this.most) this.known.delete(this.known.keys().next().value);
        }
        return answer;
    }
}
