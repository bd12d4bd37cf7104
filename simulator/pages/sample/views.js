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

  // The conversation inside box. labelFor(speaker) gives a node that names the
  // speaker to screen readers.
  function createConversation(box, labelFor) {
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

    // Somebody who has scrolled back to read is not pulled away from it.
    function isAtEnd() {
      return box.scrollHeight - box.scrollTop - box.clientHeight < 80;
    }

    function scrollToEnd() {
      box.scrollTop = box.scrollHeight;
    }

    function robotStarts(text) {
      robotFinishes();
      speaking = addBubble('robot', 'is-speaking', text);
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
      if (!unfinished || !unfinished.isConnected) {
        unfinished = addBubble('user', 'is-unfinished', text);
        return;
      }
      const following = isAtEnd();
      unfinished.querySelector('.bubble-text').textContent = text;
      if (following) {
        scrollToEnd();
      }
    }

    // The question panel takes its room from the conversation; the last words
    // stay in sight.
    new ResizeObserver(scrollToEnd).observe(box);

    return { robotStarts, robotFinishes, userSays };
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

    return { add, count: () => total };
  }

  function toJson(attributes) {
    const json = JSON.stringify(attributes);
    return json.length > MAX_JSON_LENGTH ? json.slice(0, MAX_JSON_LENGTH) + '…' : json;
  }

  sample.createConversation = createConversation;
  sample.createMessageList = createMessageList;

})(window.sample);
