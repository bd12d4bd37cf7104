'use strict';

/*
 * The parts of the page that grow: the conversation's bubbles and the list of
 * messages. Both are bounded, since a robot shows a page for weeks, and both
 * put text into the page as text, never as markup.
 */
window.sample = window.sample || {};

(function (sample) {

  const MAX_BUBBLES = 50;
  const MAX_MESSAGES = 200;
  const MAX_JSON_LENGTH = 2000;   // a scanned picture would fill the list alone

  function make(tag, className, text) {
    const node = document.createElement(tag);
    node.className = className;
    if (text !== undefined) {
      node.textContent = text;
    }
    return node;
  }

  // A button with a text that follows the language.
  function makeButton(className, key) {
    const button = make('button', className, sample.language.translate(key));
    button.type = 'button';
    button.dataset.text = key;
    return button;
  }

  // The conversation inside box. labelFor(speaker) gives a node that names the
  // speaker to screen readers.
  function createConversation(box, labelFor) {
    const lines = sample.createLines();
    let speaking = null;    // the robot's bubble while it speaks
    let unfinished = null;  // the user's bubble while recognition goes on

    function addBubble(speaker, state, text) {
      const bubble = make('div', `bubble ${speaker} ${state}`);
      bubble.append(labelFor(speaker), make('p', 'bubble-text', text));
      const following = isAtEnd();
      box.append(bubble);
      while (box.children.length > MAX_BUBBLES) {
        box.firstElementChild.remove();
      }
      if (following) {
        scrollToEnd();
      }
      return bubble;
    }

    function writeBubble(bubble, text) {
      const following = isAtEnd();
      bubble.querySelector('.bubble-text').textContent = text;
      if (following) {
        scrollToEnd();
      }
    }

    // Somebody who has scrolled back to read is not pulled away from it.
    function isAtEnd() {
      return box.scrollHeight - box.scrollTop - box.clientHeight < 80;
    }

    function scrollToEnd() {
      box.scrollTop = box.scrollHeight;
    }

    // The robot begins to speak. A line that was announced has its bubble
    // already, or its text for the screen; any other shows what is spoken.
    function robotStarts(text) {
      robotFinishes();
      const line = lines.spoken(text);
      if (line.bubble && line.bubble.isConnected) {
        line.bubble.classList.add('is-speaking');
        writeBubble(line.bubble, line.shown);
      } else {
        line.bubble = addBubble('robot', 'is-speaking', line.shown);
      }
      speaking = line.bubble;
    }

    // The dialog engine has chosen a line, which it mostly speaks too.
    function robotShows(text, shown) {
      const line = lines.announced(text, shown);
      if (line.shown === '') {
        return;
      }
      if (line.bubble && line.bubble.isConnected) {
        writeBubble(line.bubble, line.shown);
      } else {
        line.bubble = addBubble('robot', '', line.shown);
      }
    }

    function robotFinishes() {
      if (!speaking) {
        return;
      }
      speaking.classList.remove('is-speaking');
      if (speaking.querySelector('.bubble-text').textContent === '') {
        speaking.remove();   // without words only the dots were to be seen
      }
      speaking = null;
    }

    function userSays(text, isFinished) {
      if (text !== '') {
        writeUserText(text);
      }
      if (unfinished) {
        // Interim words come and go: screen readers wait for the final ones.
        unfinished.setAttribute('aria-busy', String(!isFinished));
        unfinished.classList.toggle('is-unfinished', !isFinished);
      }
      if (isFinished) {
        unfinished = null;
      }
    }

    function writeUserText(text) {
      if (unfinished && unfinished.isConnected) {
        writeBubble(unfinished, text);
      } else {
        unfinished = addBubble('user', 'is-unfinished', text);
      }
    }

    // The question panel takes its room from the conversation; the last words
    // stay in sight.
    new ResizeObserver(scrollToEnd).observe(box);

    return {
      robotStarts, robotShows, robotFinishes, userSays, robotWillSay: lines.expected,
    };
  }

  // The list of received messages, newest first.
  function createMessageList(list) {
    let total = 0;

    function add(time, topic, attributes) {
      total += 1;
      const head = make('div', 'message-head');
      head.append(make('time', 'message-time', time), make('b', 'message-topic', topic));
      const item = make('li', 'message');
      item.append(head, make('code', 'message-json', toJson(attributes)));
      list.prepend(item);
      while (list.children.length > MAX_MESSAGES) {
        list.lastElementChild.remove();
      }
    }

    // A message that is not worth a place in the list.
    function addUnlisted() {
      total += 1;
    }

    return { add, addUnlisted, count: () => total };
  }

  function toJson(attributes) {
    const json = JSON.stringify(attributes);
    return json.length > MAX_JSON_LENGTH ? json.slice(0, MAX_JSON_LENGTH) + '…' : json;
  }

  sample.make = make;
  sample.makeButton = makeButton;
  sample.createConversation = createConversation;
  sample.createMessageList = createMessageList;

})(window.sample);
